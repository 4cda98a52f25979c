// The commands that bring items in and out: clipboard, import, export, files dropped on the window.
#include "planner/PlannerFrame.h"

#include "planner/ItemBridge.h"
#include "planner/ItemClipboard.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <shellapi.h>

// ---- The clipboard

void CPlannerFrame::OnCopy(UINT nID)
{
    const planner::Occurrence* current = m_items.Current();
    if (!current) {
        return;
    }
    const planner::OccurrenceId id = current->id;
    planner::CalendarSet& calendar = Calendars();
    const bool isPut = planner::PutOnClipboard(*this, calendar.Excerpt({id}, planner::ExcerptForm::Occurrences),
                                               planner::PlainTextOf(calendar, {id}));
    if (isPut && nID == ID_EDIT_CUT) {
        Finish(calendar.Delete(id, planner::Scope::ThisOccurrence));
    }
}

void CPlannerFrame::OnPaste()
{
    const auto pasted = planner::TakeFromClipboard(*this);
    if (pasted) {
        FinishMerge(planner::PasteText(Calendars(), *pasted, NewTimes()));
    }
}

void CPlannerFrame::OnUpdatePaste(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(planner::IsPasteable());
}

// Shows what has come in, and says how much.
void CPlannerFrame::FinishMerge(const planner::MergeReport& report)
{
    Finish(report.edit);
    if (!report.edit.isDone) {
        return;
    }
    if (report.added + report.replaced + report.removed == 0) {
        ShowStatus(planner::Tr("There was nothing new in it"));
    } else {
        ShowStatus(planner::Tr("%1 added, %2 replaced", std::to_string(report.added), std::to_string(report.replaced)));
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

void CPlannerFrame::Import(const std::string& path)
{
    const auto bytes = planner::ReadWholeFile(path);
    if (!bytes) {
        planner::Ask(this, planner::Tr("%1 cannot be read.", path), MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    CWaitCursor wait;
    FinishMerge(Calendars().Merge(*bytes));
}

void CPlannerFrame::OnImport()
{
    std::string path;
    if (planner::PromptFile(this, planner::FilePrompt::Open, planner::CalendarFilter(), "ics", path)) {
        Import(path);
    }
}

void CPlannerFrame::OnExportItems()
{
    std::vector<planner::OccurrenceId> ids = m_items.IdsInView();
    if (const planner::Occurrence* current = m_items.Current()) {
        ids = {current->id};
    }
    std::string path;
    if (ids.empty() || !planner::PromptFile(this, planner::FilePrompt::Save, planner::CalendarFilter(), "ics", path)) {
        return;
    }
    const std::string bytes = Calendars().Excerpt(ids, planner::ExcerptForm::WholeEvents);
    if (const DWORD error = planner::WriteWholeFile(path, bytes)) {
        planner::Ask(this, planner::WriteProblem(path, error), MB_OK | MB_ICONEXCLAMATION);
    }
}

void CPlannerFrame::OnUpdateExport(CCmdUI* pCmdUI)
{
    pCmdUI->Enable(m_items.CountInView() > 0);
}

// One calendar file is opened or taken over, as the user says; several are taken over.
void CPlannerFrame::OnDropFiles(HDROP hDropInfo)
{
    const UINT count = ::DragQueryFileW(hDropInfo, 0xFFFFFFFF, nullptr, 0);
    std::vector<std::string> paths;
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(::DragQueryFileW(hDropInfo, i, nullptr, 0) + 1, L'\0');
        ::DragQueryFileW(hDropInfo, i, &path[0], static_cast<UINT>(path.size()));
        paths.push_back(planner::Utf8Of(path.c_str()));
    }
    ::DragFinish(hDropInfo);
    if (IsWindowEnabled()) {
        OpenOrImport(paths);
    }
}

void CPlannerFrame::OpenOrImport(const std::vector<std::string>& paths)
{
    m_editor.Commit();
    bool isImport = paths.size() > 1;
    if (paths.size() == 1) {
        const int answer =
            planner::Ask(this, planner::Tr("Open %1?\n\nNo takes its items over into this calendar.", paths[0]),
                         MB_YESNOCANCEL | MB_ICONQUESTION);
        isImport = answer == IDNO;
        if (answer == IDYES) {
            AfxGetApp()->OpenDocumentFile(paths[0].c_str());
        }
    }
    for (const std::string& path : paths) {
        if (isImport) {
            Import(path);
        }
    }
}
