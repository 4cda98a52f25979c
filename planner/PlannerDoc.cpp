#include "planner/PlannerDoc.h"

#include "planner/ChangedDialog.h"
#include "planner/ProgressDialog.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

IMPLEMENT_DYNCREATE(CPlannerDoc, CDocument)

std::string CPlannerDoc::s_untitled;

CPlannerDoc::CPlannerDoc()
{
    m_calendars.Add(m_calendar, "");
}

CPlannerDoc::~CPlannerDoc() = default;

std::string CPlannerDoc::Name() const
{
    const std::string path = m_workspace.empty() ? Path() : m_workspace;
    return path.empty() ? planner::Tr("Untitled") : planner::FileNameOf(path);
}

void CPlannerDoc::SetPathName(LPCTSTR lpszPathName, BOOL)
{
    if (!planner::HasExtension(lpszPathName, planner::Workspace::kExtension)) { // that one has calendars with paths
        m_strPathName = planner::FullPath(lpszPathName).c_str();
    }
    m_calendars.SetName(0, planner::FileNameOf(Path()));
    SetTitle(planner::SystemOf(Name()));
}

// ---- Opening

BOOL CPlannerDoc::OnNewDocument()
{
    const BOOL done = CDocument::OnNewDocument();
    m_fileBytes.clear();
    m_calendars.SetName(0, planner::Tr("Untitled"));
    if (done && !s_untitled.empty()) {
        Recover(s_untitled, planner::Tr("Untitled"));
    }
    NotifyFrame();
    return done;
}

BOOL CPlannerDoc::OnOpenDocument(LPCTSTR lpszPathName)
{
    const std::string path = planner::FullPath(lpszPathName);
    const bool isWorkspace = planner::HasExtension(path, planner::Workspace::kExtension);
    planner::Workspace workspace;
    if ((isWorkspace && !ReadWorkspace(path, workspace)) || !Read(isWorkspace ? workspace.calendars[0].file : path)) {
        return FALSE;
    }
    CloseAllFurther();
    m_workspace = isWorkspace ? path : std::string();
    m_calendars.HideCategories(workspace.hiddenCategories);
    Recover(Path(), Path());
    if (isWorkspace) {
        Show(workspace);
    }
    NotifyFrame();
    return TRUE;
}

// The calendar of a file in place of what was here; false: what was here stays.
bool CPlannerDoc::Read(const std::string& path)
{
    auto bytes = planner::ReadWholeFile(path);
    if (!bytes) {
        planner::Ask(AfxGetMainWnd(), planner::Tr("%1 cannot be read.", path), MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    CProgressDialog progress(planner::Tr("Reading %1", planner::FileNameOf(path)));
    if (!m_calendar.Load(*bytes, [&](std::size_t done, std::size_t all) { return progress.Step(done, all); })) {
        return false;
    }
    m_copy.Remove();
    m_fileBytes = std::move(*bytes);
    m_stamp.Take(path);
    m_strPathName = path.c_str();
    m_calendars.SetName(0, planner::FileNameOf(path));
    return true;
}

void CPlannerDoc::Recover(const std::string& file, const std::string& name)
{
    const auto left = planner::AutoSave::LeftFor(file);
    if (!left) {
        return;
    }
    const bool isWanted =
        *left != m_fileBytes &&
        planner::Ask(nullptr,
                     planner::Tr("The planner ended while changes of %1 were not saved.\n\nOpen them again?", name),
                     MB_YESNO | MB_ICONQUESTION) == IDYES;
    planner::AutoSave::RemoveFor(file);
    if (isWanted) {
        m_calendar.Load(*left);
        m_calendar.MarkUnsaved();
        m_copy.Write(file, *left);
    }
}

void CPlannerDoc::DeleteContents()
{
    CloseAllFurther();
    m_workspace.clear();
    m_calendars.HideCategories({});
    m_copy.Remove();
    m_calendar.Clear();
}

// The calendar knows by its steps whether it differs from the file.
void CPlannerDoc::SetModifiedFlag(BOOL bModified)
{
    if (bModified) {
        m_calendar.MarkUnsaved();
    } else {
        m_calendar.MarkSaved();
    }
    (m_owner ? m_owner : this)->UpdateFrameCounts(); // the title shows it
}

void CPlannerDoc::NotifyFrame()
{
    ShareClock();
    if (m_owner) {
        m_owner->NotifyFrame();
        return;
    }
    POSITION position = GetFirstViewPosition();
    CView* view = position ? GetNextView(position) : nullptr;
    if (CFrameWnd* frame = view ? view->GetParentFrame() : nullptr) {
        frame->SendMessage(WM_PLANNER_LOADED);
    }
}

std::vector<planner::Message> CPlannerDoc::Messages()
{
    std::vector<planner::Message> messages = m_calendar.Messages();
    for (const auto& further : m_further) {
        for (planner::Message message : further->m_calendar.Messages()) {
            message.phrases.insert(message.phrases.begin(), {"%1", further->Name()});
            messages.push_back(message);
        }
    }
    return messages;
}

// ---- Further calendars

// All are shown on the clock of the first one, when its file names one.
void CPlannerDoc::ShareClock()
{
    const planner::ZonePtr zone = m_calendar.DisplayZone();
    for (const auto& further : m_further) {
        if (zone) {
            further->m_calendar.ShowOn(zone);
        }
    }
}

bool CPlannerDoc::OpenFurther(const std::string& path)
{
    const std::string full = planner::FullPath(path);
    bool isOpen = full == Path();
    for (const auto& further : m_further) {
        isOpen = isOpen || further->Path() == full;
    }
    auto further = std::make_unique<CPlannerDoc>();
    if (isOpen || m_further.size() + 1 >= planner::CalendarSet::kMostCalendars || !further->Read(full)) {
        return false;
    }
    further->m_owner = this;
    further->Recover(full, full);
    m_calendars.Add(further->m_calendar, planner::FileNameOf(full));
    m_further.push_back(std::move(further));
    NotifyFrame();
    return true;
}

bool CPlannerDoc::CloseFurther(std::size_t index)
{
    if (index == 0 || index > m_further.size() || !m_further[index - 1]->SaveOwnModified()) {
        return false;
    }
    m_further[index - 1]->m_copy.Remove();
    m_calendars.Remove(index);
    m_further.erase(m_further.begin() + static_cast<std::ptrdiff_t>(index - 1));
    NotifyFrame();
    return true;
}

void CPlannerDoc::CloseAllFurther()
{
    while (!m_further.empty()) {
        m_further.back()->m_copy.Remove();
        m_calendars.Remove(m_further.size());
        m_further.pop_back();
    }
}

bool CPlannerDoc::ReadWorkspace(const std::string& path, planner::Workspace& workspace)
{
    const auto text = planner::ReadWholeFile(path);
    workspace = planner::ParseWorkspace(text.value_or(""), planner::FolderOf(path));
    if (workspace.calendars.empty()) {
        planner::Ask(AfxGetMainWnd(),
                     planner::Tr(text ? "%1 is no workspace of the planner." : "%1 cannot be read.", path),
                     MB_OK | MB_ICONEXCLAMATION);
    }
    return !workspace.calendars.empty();
}

void CPlannerDoc::Show(const planner::Workspace& workspace)
{
    for (std::size_t i = 0; i < workspace.calendars.size(); ++i) {
        const planner::Workspace::Calendar& calendar = workspace.calendars[i];
        if (i != 0 && !OpenFurther(calendar.file)) {
            continue;
        }
        const std::size_t index = m_further.size(); // 0: this one
        m_calendars.SetColor(index, calendar.color);
        m_calendars.Show(index, calendar.isShown);
        if (i == workspace.target) {
            m_calendars.SetTarget(index);
        }
    }
}

bool CPlannerDoc::SaveWorkspace(const std::string& path)
{
    planner::Workspace workspace;
    workspace.target = m_calendars.Target();
    workspace.hiddenCategories = m_calendars.HiddenCategories();
    for (std::size_t i = 0; i < m_calendars.Members().size(); ++i) {
        const planner::CalendarSet::Member& member = m_calendars.Members()[i];
        const std::string file = i == 0 ? Path() : m_further[i - 1]->Path();
        workspace.calendars.push_back({file, member.color, member.isShown});
    }
    const std::string full = planner::FullPath(path);
    const std::string before = planner::ReadWholeFile(full).value_or("");
    const std::string text = planner::WorkspaceText(workspace, planner::FolderOf(full), before);
    const DWORD error = text == before ? 0 : planner::WriteWholeFile(full, text);
    if (error != 0) {
        planner::Ask(AfxGetMainWnd(), planner::WriteProblem(full, error), MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    m_workspace = full;
    UpdateFrameCounts();
    return true;
}

// ---- Saving

BOOL CPlannerDoc::DoFileSave()
{
    bool isOtherModified = false;
    for (const auto& further : m_further) {
        isOtherModified = isOtherModified || further->IsModified();
    }
    if ((IsModified() || !isOtherModified) && !SaveOwn()) {
        return FALSE;
    }
    for (const auto& further : m_further) {
        if (further->IsModified() && !further->SaveOwn()) {
            return FALSE;
        }
    }
    return m_workspace.empty() || SaveWorkspace(m_workspace);
}

BOOL CPlannerDoc::SaveOwn()
{
    planner::FileStamp now;
    now.Take(Path());
    if (!Path().empty() && now.IsReadOnly()) {
        if (planner::Ask(AfxGetMainWnd(),
                         planner::Tr("%1 is read-only.\n\nSave the calendar under another name?", Path()),
                         MB_OKCANCEL | MB_ICONINFORMATION) != IDOK) {
            return FALSE;
        }
        return DoSave(nullptr);
    }
    return DoSave(GetPathName());
}

BOOL CPlannerDoc::DoSave(LPCTSTR lpszPathName, BOOL bReplace)
{
    std::string path = lpszPathName ? lpszPathName : "";
    if (path.empty()) {
        path = Path();
        const std::string filter =
            planner::Tr("Calendars (*.ics)") + "|*.ics|" + planner::Tr("All files (*.*)") + "|*.*|";
        if (!planner::PromptFile(AfxGetMainWnd(), planner::FilePrompt::Save, filter, "ics", path)) {
            return FALSE;
        }
    }
    CWaitCursor wait;
    if (!OnSaveDocument(path.c_str())) {
        return FALSE;
    }
    if (bReplace) {
        SetPathName(path.c_str());
    }
    return TRUE;
}

BOOL CPlannerDoc::OnSaveDocument(LPCTSTR lpszPathName)
{
    const std::string path = planner::FullPath(lpszPathName);
    if (path == Path() && m_stamp.Differs(path) && !MayReplace(path)) {
        return FALSE;
    }
    std::string bytes = m_calendar.Save();
    if (const DWORD error = planner::WriteWholeFile(path, bytes)) {
        planner::Ask(AfxGetMainWnd(), planner::WriteProblem(path, error), MB_OK | MB_ICONEXCLAMATION);
        return FALSE;
    }
    m_fileBytes = std::move(bytes);
    m_stamp.Take(path);
    m_copy.Remove();
    SetModifiedFlag(FALSE);
    return TRUE;
}

// The file is not what was read: what to do is the user's to say. FALSE: it is not to be written.
BOOL CPlannerDoc::MayReplace(const std::string& path)
{
    const auto theirs = planner::ReadWholeFile(path);
    if (!theirs) {
        return planner::Ask(AfxGetMainWnd(), planner::Tr("%1 is no longer there.\n\nWrite it anew?", path),
                            MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK;
    }
    if (*theirs == m_fileBytes) {
        return TRUE; // only its time is another
    }
    switch (CChangedDialog::Ask(planner::Tr("Another program has changed %1 since it was opened.", path),
                                AfxGetMainWnd())) {
    case IDC_CHANGED_MERGE:
        MergeWith(*theirs);
        return TRUE;
    case IDC_CHANGED_OVERWRITE:
        return TRUE;
    case IDC_CHANGED_RELOAD:
        m_calendar.Load(*theirs);
        m_fileBytes = *theirs;
        m_stamp.Take(path);
        m_copy.Remove();
        NotifyFrame();
        SetModifiedFlag(FALSE);
        return FALSE;
    case IDC_CHANGED_SAVE_AS:
        DoSave(nullptr);
        return FALSE;
    default:
        return FALSE;
    }
}

// The other program's file with what was changed here.
void CPlannerDoc::MergeWith(const std::string& theirs)
{
    planner::Document merged;
    merged.Load(theirs);
    const planner::MergeReport report = merged.Merge(m_calendar.Save(), m_fileBytes);
    m_calendar = std::move(merged);
    m_calendar.MarkUnsaved();
    NotifyFrame();
    if (!report.conflicts.empty()) {
        std::string list;
        for (const std::string& title : report.conflicts) {
            list += "\n- " + title;
        }
        planner::Ask(AfxGetMainWnd(),
                     planner::Tr("Both have changed these items; the newer form is kept:") + "\n" + list,
                     MB_OK | MB_ICONINFORMATION);
    }
}

BOOL CPlannerDoc::SaveModified()
{
    if (!SaveOwnModified()) {
        return FALSE;
    }
    for (const auto& further : m_further) {
        if (!further->SaveOwnModified()) {
            return FALSE;
        }
    }
    if (!m_workspace.empty()) {
        SaveWorkspace(m_workspace); // ticks and colours
    }
    return TRUE;
}

BOOL CPlannerDoc::SaveOwnModified()
{
    if (!IsModified()) {
        return TRUE;
    }
    const std::string name = Path().empty() ? planner::Tr("Untitled") : Path();
    switch (planner::Ask(AfxGetMainWnd(), planner::Tr("Save changes to %1?", name), MB_YESNOCANCEL | MB_ICONQUESTION)) {
    case IDYES:
        return SaveOwn();
    case IDNO:
        m_copy.Remove();
        return TRUE;
    default:
        return FALSE;
    }
}

bool CPlannerDoc::KeepCopy()
{
    const std::string file = !Path().empty() || m_owner ? Path() : s_untitled;
    bool isKept = !IsModified();
    if (IsModified() && !file.empty()) {
        isKept = m_copy.Write(file, m_calendar.Save());
    } else {
        m_copy.Remove();
    }
    for (const auto& further : m_further) {
        isKept = further->KeepCopy() && isKept;
    }
    return isKept;
}
