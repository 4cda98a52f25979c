#include "planner/PlannerToolBar.h"

#include <afxpriv.h>

#include "core/CalendarFonts.h"
#include "core/DrawingHelpers.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr int kPickerWidth = 128; // pixels at 96 dpi: the longest name of a month with its year
constexpr int kButtonSize = 24;
constexpr int kImageHeight = 16;
constexpr int kPickerGap = 4; // on both sides
constexpr int kBarPart = 3;   // of the window's height the bar may take at most one in so many

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
// Where there are too few rows, so many groups at the beginning give way: they have keys that everybody knows.
constexpr int kGivingWay = 2;

bool IsGap(int tool)
{
    return kTools[tool].command == ID_SEPARATOR;
}

int EndOfGroup(int first)
{
    int end = first;
    while (end < kToolCount && !IsGap(end)) {
        ++end;
    }
    return end;
}

// One state for each tool: in its row, at its end (TBSTATE_WRAP) or not shown (TBSTATE_HIDDEN).
struct ToolRows
{
    std::vector<BYTE> states;
    int rows;
};

// In rows of that width, from the tool `first` on. Groups stay together where a row can hold them.
ToolRows RowsOf(const std::vector<int>& widths, int first, int rowWidth)
{
    ToolRows result = {std::vector<BYTE>(kToolCount, TBSTATE_HIDDEN), 1};
    int used = 0, before = -1;
    const auto nextRow = [&] {
        result.states[static_cast<std::size_t>(before)] |= TBSTATE_WRAP;
        ++result.rows;
        used = 0;
    };
    for (int group = first; group < kToolCount;) {
        const int end = EndOfGroup(group);
        const int width = std::accumulate(widths.begin() + group, widths.begin() + end, 0);
        const int gap = group > first ? widths[static_cast<std::size_t>(group) - 1] : 0;
        if (before >= 0 && used + gap + width > rowWidth) {
            nextRow();
        } else if (before >= 0) {
            result.states[static_cast<std::size_t>(group) - 1] = 0;
            used += gap;
        }
        for (int tool = group; tool < end; ++tool) {
            if (used > 0 && used + widths[static_cast<std::size_t>(tool)] > rowWidth) {
                nextRow();
            }
            result.states[static_cast<std::size_t>(tool)] = 0;
            used += widths[static_cast<std::size_t>(tool)];
            before = tool;
        }
        group = end + 1;
    }
    return result;
}

// In so many rows at most: some groups give way, then what stands in further rows.
ToolRows RowsOf(const std::vector<int>& widths, CSize room, int rowHeight)
{
    const int most = std::max<int>(room.cy / (kBarPart * rowHeight), 1);
    int first = 0;
    ToolRows result = RowsOf(widths, first, room.cx);
    for (int given = 0; given < kGivingWay && result.rows > most; ++given) {
        first = EndOfGroup(first) + 1;
        result = RowsOf(widths, first, room.cx);
    }
    int row = 0;
    for (BYTE& state : result.states) {
        const bool isLast = (state & TBSTATE_WRAP) != 0;
        state = row >= most ? TBSTATE_HIDDEN : row == most - 1 ? state & ~TBSTATE_WRAP : state;
        row += isLast ? 1 : 0;
    }
    result.rows = std::min(result.rows, most);
    return result;
}

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
        Measure();
    }
}

// Of all tools in one row. After it they want to be arranged.
void CPlannerToolBar::Measure()
{
    ShowRows(std::vector<BYTE>(kToolCount, 0));
    TBBUTTONINFO place = {};
    place.cbSize = sizeof(place);
    place.dwMask = TBIF_SIZE;
    place.cx = static_cast<WORD>(m_scale.Of(kPickerWidth + 2 * kPickerGap));
    GetToolBarCtrl().SetButtonInfo(IDC_PICKER, &place);
    m_widths.clear();
    for (int i = 0; i < kToolCount; ++i) {
        CRect tool;
        GetItemRect(i, &tool);
        m_widths.push_back(tool.Width());
    }
    PlacePicker();
}

// Unlike TB_SETSTATE, TB_SETBUTTONINFO lays the buttons out. True: something has changed.
bool CPlannerToolBar::ShowRows(const std::vector<BYTE>& states)
{
    bool isChanged = false;
    for (int i = 0; i < kToolCount; ++i) {
        TBBUTTON button = {};
        GetToolBarCtrl().GetButton(i, &button);
        constexpr BYTE ours = TBSTATE_WRAP | TBSTATE_HIDDEN;
        TBBUTTONINFO info = {};
        info.cbSize = sizeof(info);
        info.dwMask = TBIF_STATE | TBIF_BYINDEX;
        info.fsState = static_cast<BYTE>((button.fsState & ~ours) | states[static_cast<std::size_t>(i)]);
        if (info.fsState != button.fsState) {
            SendMessage(TB_SETBUTTONINFO, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&info));
            isChanged = true;
        }
    }
    return isChanged;
}

// A blank, disabled button of its width stands for the picker: unlike a separator it may end a row.
void CPlannerToolBar::MakePicker()
{
    CRect place(0, 0, kPickerWidth, kPickerWidth);
    if (m_picker.Create("", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_OWNERDRAW, place, this, IDC_PICKER)) {
        m_picker.SetTextFont(CalendarFonts::Modern().text);
        m_picker.SetWindowSize();
        Measure();
    }
}

void CPlannerToolBar::PlacePicker()
{
    CRect place(0, 0, 0, 0);
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

// Where the window is narrow, the tools stand in several rows.
LRESULT CPlannerToolBar::OnSizeParent(WPARAM wParam, LPARAM lParam)
{
    const CRect room(reinterpret_cast<const AFX_SIZEPARENTPARAMS*>(lParam)->rect);
    const ToolRows rows = RowsOf(m_widths, room.Size(), HIWORD(SendMessage(TB_GETBUTTONSIZE)));
    m_rows = rows.rows;
    if (ShowRows(rows.states)) {
        PlacePicker();
        Invalidate();
    }
    return CToolBar::OnSizeParent(wParam, lParam);
}

CSize CPlannerToolBar::CalcFixedLayout(BOOL bStretch, BOOL bHorz)
{
    CSize size = CToolBar::CalcFixedLayout(bStretch, bHorz);
    size.cy += (m_rows - 1) * HIWORD(SendMessage(TB_GETBUTTONSIZE));
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
