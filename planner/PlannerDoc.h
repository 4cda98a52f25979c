// The calendar file as a document of the frame.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "planner/Calendar.h"

// Sent to the frame when the document holds another calendar.
constexpr UINT WM_PLANNER_LOADED = WM_APP + 1;

class CPlannerDoc : public CDocument
{
    DECLARE_DYNCREATE(CPlannerDoc)

public:
    planner::Document& Calendar() { return m_calendar; }

    BOOL OnNewDocument() override;
    BOOL OnOpenDocument(LPCTSTR lpszPathName) override;
    void DeleteContents() override;
    BOOL IsModified() override { return m_calendar.IsModified(); }
    void SetModifiedFlag(BOOL bModified = TRUE) override;
    void Serialize(CArchive& archive) override; // the file's bytes as they are

private:
    void TellFrame();

    planner::Document m_calendar;
};
