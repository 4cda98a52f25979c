// The calendar file as a document of the frame, with the further calendars that are shown beside it.
#pragma once

#include <afxext.h>
#include <afxwin.h>

#include "planner/Calendar.h"
#include "planner/CalendarSet.h"
#include "planner/DocumentFile.h"
#include "planner/Workspace.h"

#include <memory>
#include <string>
#include <vector>

// Sent to the frame when the document holds another calendar.
constexpr UINT WM_PLANNER_LOADED = WM_APP + 1;

// Its path name is UTF-8, unlike that of other documents of the framework.
class CPlannerDoc : public CDocument
{
    DECLARE_DYNCREATE(CPlannerDoc)

public:
    CPlannerDoc();
    ~CPlannerDoc() override;

    planner::Document& Calendar() { return m_calendar; }
    planner::CalendarSet& Calendars() { return m_calendars; }
    bool IsFiltered() const { return m_calendars.IsFiltered(); }
    std::string Path() const { return GetPathName().GetString(); }
    std::string Name() const; // of the file, or of the workspace; in the user's language when there is neither
    // What could not be read of all calendars.
    std::vector<planner::Message> Messages();

    // ---- Further calendars, shown beside this one
    bool OpenFurther(const std::string& path);
    // Asks what is to become of its changes; false: it stays.
    bool CloseFurther(std::size_t index);
    // Into the file that it came from, or another one, which becomes its own.
    bool SaveWorkspace(const std::string& path);
    const std::string& WorkspacePath() const { return m_workspace; }

    BOOL OnNewDocument() override;
    // A calendar or a workspace. Offers what a planner that ended unexpectedly has left of the file.
    BOOL OnOpenDocument(LPCTSTR lpszPathName) override;
    // Asks first when somebody else has changed the file; its attributes stay.
    BOOL OnSaveDocument(LPCTSTR lpszPathName) override;
    BOOL DoSave(LPCTSTR lpszPathName, BOOL bReplace = TRUE) override;
    BOOL DoFileSave() override; // of all calendars that are changed
    BOOL SaveModified() override;
    void SetPathName(LPCTSTR lpszPathName, BOOL bAddToMRU = TRUE) override;
    void DeleteContents() override;
    BOOL IsModified() override { return m_calendar.IsModified(); } // without the further ones
    void SetModifiedFlag(BOOL bModified = TRUE) override;

    // Keeps a copy beside the file while there are changes that are not saved.
    bool KeepCopy();
    // Where the copy of a calendar without a name is kept (UTF-8); empty: nowhere.
    static std::string s_untitled;

private:
    void NotifyFrame();
    bool Read(const std::string& path);
    bool ReadWorkspace(const std::string& path, planner::Workspace& workspace);
    void Show(const planner::Workspace& workspace);
    void ShareClock();
    void Recover(const std::string& file, const std::string& name);
    BOOL SaveOwn();
    BOOL SaveOwnModified();
    BOOL MayReplace(const std::string& path);
    void MergeWith(const std::string& theirs);
    void CloseAllFurther();

    planner::Document m_calendar;
    planner::CalendarSet m_calendars; // the first one is m_calendar, then those of m_further in their order
    std::vector<std::unique_ptr<CPlannerDoc>> m_further;
    CPlannerDoc* m_owner = nullptr; // of a further one
    std::string m_workspace;        // path; empty: none
    std::string m_fileBytes;        // as they were last read or written: what a merge compares with
    planner::FileStamp m_stamp;
    planner::AutoSave m_copy;
};
