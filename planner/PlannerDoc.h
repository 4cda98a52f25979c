// The calendar file as a document of the frame.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "planner/Calendar.h"
#include "planner/DocumentFile.h"

// Sent to the frame when the document holds another calendar.
constexpr UINT WM_PLANNER_LOADED = WM_APP + 1;

class CPlannerDoc : public CDocument
{
    DECLARE_DYNCREATE(CPlannerDoc)

public:
    planner::Document& Calendar() { return m_calendar; }

    BOOL OnNewDocument() override;
    // Offers what a planner that ended unexpectedly has left of the file.
    BOOL OnOpenDocument(LPCTSTR lpszPathName) override;
    // Asks first when somebody else has changed the file; its attributes stay.
    BOOL OnSaveDocument(LPCTSTR lpszPathName) override;
    BOOL DoFileSave() override;
    BOOL SaveModified() override;
    void DeleteContents() override;
    BOOL IsModified() override { return m_calendar.IsModified(); }
    void SetModifiedFlag(BOOL bModified = TRUE) override;
    void Serialize(CArchive& archive) override; // the file's bytes as they are

    // Keeps a copy beside the file while there are changes that are not saved.
    void KeepCopy();
    // Where the copy of a calendar without a name is kept; empty: nowhere.
    static CString s_untitled;

private:
    void TellFrame();
    void Recover(const CString& file, const std::string& name);
    BOOL MayReplace(const CString& path);
    void MergeWith(const std::string& theirs);

    planner::Document m_calendar;
    std::string m_fileBytes; // as they were last read or written: what a merge compares with
    planner::FileStamp m_stamp;
    planner::AutoSave m_copy;
};
