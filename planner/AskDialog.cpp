#include "planner/AskDialog.h"

#include "core/DrawingHelpers.h"
#include "core/ViewScale.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr int kIconSize = 32; // pixels at 96 dpi
constexpr int kButtonIds[] = {IDYES, IDNO, IDOK, IDCANCEL};

std::vector<int> ButtonsOf(UINT type)
{
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL:
        return {IDOK, IDCANCEL};
    case MB_YESNO:
        return {IDYES, IDNO};
    case MB_YESNOCANCEL:
        return {IDYES, IDNO, IDCANCEL};
    default:
        return {IDOK};
    }
}

HICON IconOf(UINT type)
{
    switch (type & MB_ICONMASK) {
    case MB_ICONQUESTION:
        return ::LoadIcon(nullptr, IDI_QUESTION);
    case MB_ICONEXCLAMATION:
        return ::LoadIcon(nullptr, IDI_EXCLAMATION);
    case MB_ICONINFORMATION:
        return ::LoadIcon(nullptr, IDI_INFORMATION);
    default:
        return nullptr;
    }
}

} // namespace

BEGIN_MESSAGE_MAP(CAskDialog, CPlannerDialog)
ON_WM_PAINT()
ON_COMMAND_RANGE(IDYES, IDNO, &CAskDialog::OnYesOrNo)
END_MESSAGE_MAP()

CAskDialog::CAskDialog(const std::string& utf8, UINT type, CWnd* pParent)
    : CPlannerDialog(IDD_ASK, pParent), m_text(utf8), m_type(type), m_iconPlace(0, 0, 0, 0)
{
}

BOOL CAskDialog::OnInitDialog()
{
    CPlannerDialog::OnInitDialog();
    planner::SetItemUtf8(*this, IDC_QUESTION, m_text);
    Arrange();
    ::MessageBeep(m_type & MB_ICONMASK);
    const int first = ButtonsOf(m_type).front();
    SendMessage(DM_SETDEFID, static_cast<WPARAM>(first));
    ::SetFocus(::GetDlgItem(m_hWnd, first));
    return FALSE;
}

CRect CAskDialog::PlaceOf(int nID) const
{
    CRect place;
    ::GetWindowRect(::GetDlgItem(m_hWnd, nID), &place);
    ScreenToClient(&place);
    return place;
}

// The text is as high as it needs to be, the buttons stand below it at the right edge.
void CAskDialog::Arrange()
{
    CRect text = PlaceOf(IDC_QUESTION), written(0, 0, text.Width(), 0);
    const int margin = text.left, gap = margin / 2;
    CSize icon(0, 0);
    if (IconOf(m_type)) {
        icon.cx = icon.cy = Scale().Of(kIconSize);
        m_iconPlace = CRect(text.TopLeft(), icon);
        text.OffsetRect(icon.cx + margin, 0);
    }
    {
        CClientDC dc(this);
        const dayvane::SelectGdi selectFont(&dc, GetDlgItem(IDC_QUESTION)->GetFont());
        ::DrawTextW(dc, planner::Wide(m_text).c_str(), -1, &written, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    }
    const CSize button = PlaceOf(IDOK).Size();
    const std::vector<int> buttons = ButtonsOf(m_type);
    const int buttonsWidth = static_cast<int>(buttons.size()) * (static_cast<int>(button.cx) + gap) - gap;
    const int width = std::max(static_cast<int>(text.left) + static_cast<int>(written.Width()), margin + buttonsWidth);
    const int height = std::max<int>(written.Height(), icon.cy);
    ::MoveWindow(::GetDlgItem(m_hWnd, IDC_QUESTION), text.left, text.top + (height - written.Height()) / 2,
                 width - text.left, written.Height(), FALSE);
    CPoint at(width - buttonsWidth, text.top + height + margin);
    for (const int id : kButtonIds) {
        const HWND window = ::GetDlgItem(m_hWnd, id);
        if (std::find(buttons.begin(), buttons.end(), id) == buttons.end()) {
            ::ShowWindow(window, SW_HIDE);
            ::EnableWindow(window, FALSE);
        } else {
            ::MoveWindow(window, at.x, at.y, button.cx, button.cy, FALSE);
            at.x += button.cx + gap;
        }
    }
    SizeClient(CSize(width + margin, at.y + static_cast<int>(button.cy) + gap));
}

void CAskDialog::OnPaint()
{
    CPaintDC dc(this);
    if (const HICON icon = IconOf(m_type)) {
        ::DrawIconEx(dc, m_iconPlace.left, m_iconPlace.top, icon, m_iconPlace.Width(), m_iconPlace.Height(), 0, nullptr,
                     DI_NORMAL);
    }
}

void CAskDialog::OnYesOrNo(UINT nID)
{
    EndDialog(static_cast<int>(nID));
}

void CAskDialog::OnOK()
{
    EndDialog(IDOK);
}

// A question without Cancel is left as the system's own: by Escape a message, never a choice of Yes and No.
void CAskDialog::OnCancel()
{
    const std::vector<int> buttons = ButtonsOf(m_type);
    if (buttons.back() != IDNO) {
        EndDialog(buttons.back());
    }
}

namespace planner {

int Ask(CWnd* owner, const std::string& utf8, UINT type)
{
    if (CurrentAnswerer()) {
        return CurrentAnswerer()(utf8, type);
    }
    return static_cast<int>(CAskDialog(utf8, type, owner).DoModal());
}

} // namespace planner
