// The commands that bring items in and out: clipboard, import, export, files dropped on the window.
#include "planner/PlannerFrame.h"

#include "planner/ItemBridge.h"
#include "planner/ItemClipboard.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <afxdlgs.h>

#include <shellapi.h>

namespace {

constexpr char kFilter[] = "iCalendar (*.ics)|*.ics|All files (*.*)|*.*||";

bool WriteWholeFile(const CString& path, const std::string& bytes)
{
    const HANDLE handle = ::CreateFile(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    DWORD written = 0;
    const bool isWhole = ::WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                         written == bytes.size();
    ::CloseHandle(handle);
    return isWhole;
}

} // namespace

// ---- The clipboard

void CPlannerFrame::OnCopy(UINT nID)
{
    const planner::Occurrence* current = m_items.Current();
    if (!current) {
        return;
    }
    const planner::OccurrenceId id = current->id;
    planner::Document& calendar = Document()->Calendar();
    const bool isPut = planner::PutOnClipboard(*this, calendar.Excerpt({id}, planner::ExcerptForm::Occurrences),
                                               planner::PlainTextOf(calendar, {id}));
    if (isPut && nID == ID_EDIT_CUT) {
        Finish(calendar.Delete(id, planner::Scope::ThisOccurrence));
    }
}

void CPlannerFrame::OnPaste()
{
    const auto pasted = planner::TakeFromClipboard(*this);
    if (pasted && m_items.Ctrl()) {
        const planner::EventTimes place = planner::SelectedTimes(*m_items.Ctrl(), !m_view.row->hasTimes);
        FinishMerge(planner::PasteText(Document()->Calendar(), *pasted, place));
    }
}

void CPlannerFrame::OnUpdatePaste(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(planner::IsPasteable());
}

// Shows what has come in, and tells how much.
void CPlannerFrame::FinishMerge(const planner::MergeReport& report)
{
    Finish(report.edit);
    if (!report.edit.isDone) {
        return;
    }
    if (report.added + report.replaced + report.removed == 0) {
        Tell(planner::Tr("There was nothing new in it"));
    } else {
        Tell(planner::Tr("%1 items added, %2 replaced", std::to_string(report.added), std::to_string(report.replaced)));
    }
    if (!report.conflicts.empty()) {
        std::string list;
        for (const std::string& title : report.conflicts) {
            list += "\n- " + title;
        }
        planner::Ask(this, planner::Tr("Both have changed these items; the newer form is kept:") + "\n" + list,
                     MB_OK | MB_ICONINFORMATION);
    }
}

// ---- Files

void CPlannerFrame::Import(const CString& path)
{
    const auto bytes = planner::ReadWholeFile(path);
    if (!bytes) {
        planner::Ask(this, planner::Tr("%1 cannot be read.", planner::Utf8OfSystem(path)), MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    CWaitCursor wait;
    FinishMerge(Document()->Calendar().Merge(*bytes));
}

void CPlannerFrame::OnImport()
{
    CFileDialog dialog(TRUE, "ics", nullptr, OFN_HIDEREADONLY | OFN_FILEMUSTEXIST, kFilter, this);
    if (dialog.DoModal() == IDOK) {
        Import(dialog.GetPathName());
    }
}

void CPlannerFrame::OnExportItems()
{
    std::vector<planner::OccurrenceId> ids = m_items.IdsInView();
    if (const planner::Occurrence* current = m_items.Current()) {
        ids = {current->id};
    }
    CFileDialog dialog(FALSE, "ics", nullptr, OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, kFilter, this);
    if (ids.empty() || dialog.DoModal() != IDOK) {
        return;
    }
    const std::string bytes = Document()->Calendar().Excerpt(ids, planner::ExcerptForm::WholeEvents);
    if (!WriteWholeFile(dialog.GetPathName(), bytes)) {
        planner::Ask(this, planner::Tr("%1 cannot be written.", planner::Utf8OfSystem(dialog.GetPathName())),
                     MB_OK | MB_ICONEXCLAMATION);
    }
}

void CPlannerFrame::OnUpdateExport(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(m_items.CountInView() > 0);
}

// One calendar file is opened or taken over, as the user says; several are taken over.
void CPlannerFrame::OnDropFiles(HDROP hDropInfo)
{
    const UINT count = ::DragQueryFile(hDropInfo, 0xFFFFFFFF, nullptr, 0);
    std::vector<CString> paths;
    for (UINT i = 0; i < count; ++i) {
        char path[MAX_PATH * 4] = "";
        ::DragQueryFile(hDropInfo, i, path, sizeof(path));
        paths.push_back(path);
    }
    ::DragFinish(hDropInfo);
    m_editor.Commit();
    bool isImport = paths.size() > 1;
    if (paths.size() == 1) {
        const int answer = planner::Ask(
            this,
            planner::Tr("Open %1?\n\nNo takes its items over into this calendar.", planner::Utf8OfSystem(paths[0])),
            MB_YESNOCANCEL | MB_ICONQUESTION);
        isImport = answer == IDNO;
        if (answer == IDYES) {
            AfxGetApp()->OpenDocumentFile(paths[0]);
        }
    }
    for (const CString& path : paths) {
        if (isImport) {
            Import(path);
        }
    }
}
