#include "planner/PlannerToolBar.h"

#include <afxpriv.h>

#include "core/CalendarFonts.h"
#include "core/DrawingHelpers.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

namespace {

constexpr int kPickerWidth = 128; // pixels at 96 dpi: the longest name of a month with its year
constexpr int kButtonSize = 24;
constexpr int kImageHeight = 16;
constexpr int kPickerGap = 4;       // on both sides
constexpr int kLowestWrapped = 200; // a lower window has no room for a second row

struct Tool
{
    UINT command;
    const char* text;
};

constexpr Tool kTools[] = {
    {ID_FILE_OPEN, "Open"},     {ID_FILE_SAVE, "Save"},
    {ID_SEPARATOR, nullptr},    {ID_EDIT_UNDO, "Undo"},
    {ID_EDIT_REDO, "Redo"},     {ID_EDIT_NEW_ITEM, "New item"},
    {ID_SEPARATOR, nullptr},    {ID_VIEW_PREVIOUS, "<"},
    {ID_VIEW_TODAY, "Today"},   {ID_VIEW_NEXT, ">"},
    {IDC_PICKER, nullptr},      {ID_SEPARATOR, nullptr},
    {ID_VIEW_DAY, "Day"},       {ID_VIEW_WORKING_WEEK, "Working week"},
    {ID_VIEW_WEEK, "Week"},     {ID_VIEW_DAYS, "Days"},
    {ID_VIEW_DIARY, "Diary"},   {ID_VIEW_MONTH, "Month"},
    {ID_VIEW_MONTH2, "Blocks"}, {ID_VIEW_YEAR, "Year"},
    {ID_VIEW_AGENDA, "Agenda"},
};
constexpr int kLongestTool = 64; // bytes of a text
constexpr int kToolCount = sizeof(kTools) / sizeof(kTools[0]);

} // namespace

BEGIN_MESSAGE_MAP(CPlannerToolBar, CToolBar)
ON_WM_ERASEBKGND()
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, &CPlannerToolBar::OnCustomDraw)
ON_MESSAGE(WM_SIZEPARENT, &CPlannerToolBar::OnSizeParent)
ON_MESSAGE(YMN_SELENDOK, &CPlannerToolBar::OnPickerMessage)
END_MESSAGE_MAP()

BOOL CPlannerToolBar::Create(CWnd* pParent)
{
    if (!CreateEx(pParent, TBSTYLE_FLAT | TBSTYLE_LIST,
                  WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | CBRS_TOP | CBRS_TOOLTIPS)) {
        return FALSE;
    }
    UINT commands[kToolCount];
    for (int i = 0; i < kToolCount; ++i) {
        commands[i] = kTools[i].command;
    }
    SetSizes(CSize(kButtonSize, kButtonSize), CSize(1, kImageHeight));
    if (!SetButtons(commands, kToolCount)) {
        return FALSE;
    }
    ShowTexts();
    MakePicker();
    return m_picker.GetSafeHwnd() != nullptr;
}

void CPlannerToolBar::ShowTexts()
{
    for (const Tool& tool : kTools) {
        if (tool.text) {
            std::wstring text = planner::Wide(planner::Tr(tool.text));
            TBBUTTONINFOW info = {};
            info.cbSize = sizeof(info);
            info.dwMask = TBIF_TEXT | TBIF_STYLE;
            info.fsStyle = BTNS_BUTTON | BTNS_AUTOSIZE; // measures it anew
            info.pszText = &text[0];
            ::SendMessageW(m_hWnd, TB_SETBUTTONINFOW, tool.command, reinterpret_cast<LPARAM>(&info));
        }
    }
    if (m_picker.m_hWnd) {
        PlacePicker();
    }
}

// A blank, disabled button of its width stands for the picker: unlike a separator it may end a row.
void CPlannerToolBar::MakePicker()
{
    CRect place(0, 0, kPickerWidth, kPickerWidth);
    if (m_picker.Create("", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, place, this, IDC_PICKER)) {
        m_picker.SetTextFont(CalendarFonts::Modern().text);
        m_picker.SetWindowSize();
        PlacePicker();
    }
}

void CPlannerToolBar::PlacePicker()
{
    TBBUTTONINFO gap = {};
    gap.cbSize = sizeof(gap);
    gap.dwMask = TBIF_STATE | TBIF_SIZE;
    gap.fsState = m_isWrapped ? TBSTATE_WRAP : 0;
    gap.cx = static_cast<WORD>(m_scale.Of(kPickerWidth + 2 * kPickerGap));
    GetToolBarCtrl().SetButtonInfo(IDC_PICKER, &gap);
    CRect place;
    GetItemRect(CommandToIndex(IDC_PICKER), &place);
    place.DeflateRect(m_scale.Of(kPickerGap), 1);
    CRect actual;
    m_picker.GetWindowRect(&actual);
    m_picker.SetWindowPos(nullptr, place.left, place.top + (place.Height() - actual.Height()) / 2, place.Width(),
                          actual.Height(), SWP_NOZORDER);
}

void CPlannerToolBar::SetScale(int dpi)
{
    if (dpi == m_scale.dpi) {
        return;
    }
    m_scale.dpi = dpi;
    m_font.Show(*this, dpi);
    SetSizes(CSize(m_scale.Of(kButtonSize), m_scale.Of(kButtonSize)), CSize(1, m_scale.Of(kImageHeight)));
    m_picker.SetScale(dpi);
    ShowTexts(); // measures them anew
    Invalidate();
}

// Where the window is narrow, the views stand in a second row.
LRESULT CPlannerToolBar::OnSizeParent(WPARAM wParam, LPARAM lParam)
{
    const CRect room(reinterpret_cast<const AFX_SIZEPARENTPARAMS*>(lParam)->rect);
    int width = 0;
    for (int i = 0; i < kToolCount; ++i) {
        CRect tool;
        GetItemRect(i, &tool);
        width += tool.Width();
    }
    m_isWrapped = width > room.Width() && room.Height() >= kLowestWrapped;
    TBBUTTONINFO gap = {};
    gap.cbSize = sizeof(gap);
    gap.dwMask = TBIF_STATE;
    gap.fsState = m_isWrapped ? TBSTATE_WRAP : 0;
    if (SendMessage(TB_GETSTATE, IDC_PICKER) != gap.fsState) {
        GetToolBarCtrl().SetButtonInfo(IDC_PICKER, &gap); // unlike TB_SETSTATE, lays the buttons out
        Invalidate();
    }
    return CToolBar::OnSizeParent(wParam, lParam);
}

CSize CPlannerToolBar::CalcFixedLayout(BOOL bStretch, BOOL bHorz)
{
    CSize size = CToolBar::CalcFixedLayout(bStretch, bHorz);
    size.cy += m_isWrapped ? HIWORD(SendMessage(TB_GETBUTTONSIZE)) : 0;
    return size;
}

void CPlannerToolBar::Follow(const COleDateTime& day)
{
    m_picker.SetCurrentDate(day);
    m_picker.Invalidate(FALSE);
}

// A flat bar shows what its parent paints, and the frame paints nothing where a view is active.
BOOL CPlannerToolBar::OnEraseBkgnd(CDC* pDC)
{
    CRect all;
    GetClientRect(&all);
    pDC->FillSolidRect(&all, planner::BarColors(m_picker.GetTheme()).ground);
    return TRUE;
}

void CPlannerToolBar::ShowEraTitles(BOOL bShow)
{
    m_picker.ShowEraTitles(bShow);
    m_picker.Invalidate(FALSE);
}

void CPlannerToolBar::SetTheme(planner::ThemeChoice choice)
{
    planner::ShowTheme(m_picker, choice);
    Invalidate();
}

// The bar draws itself, with the theme's colours.
void CPlannerToolBar::OnCustomDraw(NMHDR* pHeader, LRESULT* pResult)
{
    NMTBCUSTOMDRAW& draw = *reinterpret_cast<NMTBCUSTOMDRAW*>(pHeader);
    const CalendarTheme& theme = m_picker.GetTheme();
    *pResult = CDRF_DODEFAULT;
    if (theme == dayvane::kClassicTheme) {
        return;
    }
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        *pResult = CDRF_NOTIFYITEMDRAW;
    } else if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
        DrawTool(draw.nmcd);
        *pResult = CDRF_SKIPDEFAULT;
    }
}

void CPlannerToolBar::DrawTool(const NMCUSTOMDRAW& draw)
{
    const CalendarTheme& theme = m_picker.GetTheme();
    CDC* pDC = CDC::FromHandle(draw.hdc);
    const dayvane::SaveDcScope saved(pDC);
    const dayvane::SelectGdi selectFont(pDC, GetFont());
    CRect box(draw.rc);
    const bool isChecked = (draw.uItemState & (CDIS_CHECKED | CDIS_SELECTED)) != 0;
    if (isChecked || (draw.uItemState & CDIS_HOT) != 0) {
        pDC->FillSolidRect(&box, isChecked ? theme.selection : theme.hot);
        pDC->Draw3dRect(&box, theme.selectionFrame, theme.selectionFrame);
    }
    wchar_t text[kLongestTool] = L"";
    ::SendMessageW(m_hWnd, TB_GETBUTTONTEXTW, draw.dwItemSpec, reinterpret_cast<LPARAM>(text));
    const bool isDisabled = (draw.uItemState & (CDIS_DISABLED | CDIS_GRAYED)) != 0;
    pDC->SetBkMode(TRANSPARENT);
    pDC->SetTextColor(isDisabled ? theme.border : isChecked ? theme.selectionText : planner::BarColors(theme).text);
    ::DrawTextW(*pDC, text, -1, &box, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOPREFIX);
}

LRESULT CPlannerToolBar::OnPickerMessage(WPARAM wParam, LPARAM lParam)
{
    return GetParent()->SendMessage(YMN_SELENDOK, wParam, lParam);
}
