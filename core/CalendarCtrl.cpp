// The base control: lifetime, settings, dates, fonts, hit test, notifications.
#include "core/CalendarCtrl.h"

#include "core/WindowHelpers.h"
#include "calc/DayAnnotation.h"
#include "core/DateMath.h"
#include "core/Fonts.h"
#include "core/InPlaceEdit.h"
#include "core/Interaction.h"
#include "core/ItemFeed.h"
#include "core/PointerDriver.h"
#include "core/SystemEras.h"
#include "core/TimeIndex.h"

#include <algorithm>
#include <iterator>

using namespace dayvane;

namespace {

constexpr int kStandardDayColors = 7;

constexpr tagCALENDAR_DAY_COLOR kDayColors[kStandardDayColors] = {
    // background / work fill, work line, work hour line, off fill, off line, off hour line / other month, text
    {{0xFFFFFF, 0xF1D7D5, 0xE1BFA5, 0xF7EDE6, 0xF1D7D5, 0xE1BFA5, 0x000000}}, // 1 ordinary day
    {{0xC9C8EF, 0xBDBBE9, 0xA6A4DE, 0x8E8CDD, 0x8381D2, 0x6564B3, 0x2138EF}}, // 2 Sunday, holiday
    {{0xE6D8CF, 0xDBC9C1, 0xCCAFA1, 0xBF9E8B, 0xB59380, 0x987461, 0xDE5500}}, // 3 Saturday
    {{0xBCECD5, 0xB4E4CD, 0xA2D1BA, 0x97D4B3, 0x8ACBA8, 0x68B48C, 0x68B48C}}, // 4 .. 7 for the host
    {{0xD5FFFF, 0xC7EFFF, 0xA2DBF6, 0xBCF4FF, 0xB1E4F3, 0x98D0EA, 0x98D0EA}},
    {{0xAED0FA, 0xA3C4EE, 0x76A6E1, 0x7FB4F7, 0x71A7EB, 0x4783CA, 0x4783CA}},
    {{0xECD5DD, 0xE6C7D2, 0xD8A9B9, 0xCF94A8, 0xC2889B, 0x9B6376, 0x9B6376}},
};

constexpr FontSpec kFonts[] = {
    // height, weight, character set, face; in the order of CalendarFont
    {22, FW_DONTCARE, ANSI_CHARSET, "Westminster"},
    {30, FW_DONTCARE, ANSI_CHARSET, "Century Gothic"},
    {12, FW_DONTCARE, SHIFTJIS_CHARSET, "MS UI Gothic"},
    {12, FW_DONTCARE, SYMBOL_CHARSET, "MS Outlook"},
};

// Slots of the font cache, by GetFont's flags: italic wins over bold, slot 2 stays empty.
constexpr int kSlotOfFontFlags[4] = {0, 1, 3, 3};
constexpr int kFontBold = 1;
constexpr int kFontItalic = 2;

constexpr int kHitRowHeight = 20; // pixels of a row of the base hit test: half an hour
constexpr int kHitRows = 49;

constexpr int kMinTimeScale = 1;
constexpr int kMaxTimeScale = 60;
constexpr int kGridRowHeight = 20; // pixels

constexpr int kRowScrollInterval = 120; // milliseconds: rows follow each other fast; views of days wait longer

} // namespace

IMPLEMENT_DYNAMIC(CCalendarCtrl, CWnd)

CArray<tagCALENDAR_DAY_COLOR, const tagCALENDAR_DAY_COLOR&> CCalendarCtrl::m_arDayColors;

BEGIN_MESSAGE_MAP(CCalendarCtrl, CWnd)
ON_WM_DESTROY()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEHOVER()
ON_WM_MOUSEWHEEL()
ON_WM_SETCURSOR()
ON_WM_CONTEXTMENU()
ON_WM_GETDLGCODE()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_MESSAGE(WM_IME_CHAR, &CCalendarCtrl::OnImeChar)
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_CAPTURECHANGED()
ON_WM_CANCELMODE()
ON_MESSAGE(CCalendarCtrl::kItemFeedMessage, &CCalendarCtrl::OnItemFeed)
ON_WM_TIMER()
ON_WM_ENABLE()
ON_MESSAGE(WM_MOUSEHWHEEL, &CCalendarCtrl::OnMouseHWheel)
ON_MESSAGE(WM_UPDATEUISTATE, &CCalendarCtrl::OnUpdateUIState)
ON_MESSAGE(WM_PRINTCLIENT, &CCalendarCtrl::OnPrintClient)
ON_NOTIFY(CCN_IPE_ENDEDITITEM, CCalendarCtrl::kEditId, &CCalendarCtrl::OnCcnIpeEndEditItem)
END_MESSAGE_MAP()

// ---- Lifetime

CCalendarCtrl::CCalendarCtrl()
    : m_nAutoScrollInterval(kRowScrollInterval), m_interaction(std::make_unique<Interaction>([this] { DayHasCome(); })),
      m_pIndex(std::make_unique<TimeIndex>()), m_pointer(std::make_unique<PointerDriver>()),
      m_themeWatch([this] { FollowSystemTheme(); })
{
    for (const tagCALENDAR_DAY_COLOR& row : kDayColors) {
        m_arDayColors.Add(row);
    }

    m_colors.highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    m_colors.highlightText = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
    m_colors.noFocus = ::GetSysColor(COLOR_BTNFACE);

    std::transform(std::begin(kFonts), std::end(kFonts), m_lfFonts, LogFontOf);

    m_dtCurrentDate = m_dtViewDate = m_dtSelBegin = m_dtSelEnd = m_dtSelAnchor = Now();
    m_dtPrevSelEnd.SetStatus(COleDateTime::invalid);
}

CCalendarCtrl::~CCalendarCtrl()
{
    m_life.End();
    // A derived control that has not destroyed its window does not exist any more: its hooks are the base's now.
    DestroyWindow();
    // The italic font is left to the end of the process: it may still be selected somewhere.
    m_fontCache[kSlotOfFontFlags[kFontItalic]].Detach();
}

BOOL CCalendarCtrl::Create(DWORD, const RECT&, CWnd*, UINT, CCreateContext*)
{
    return TRUE;
}

// An open edit box belongs to the cell where it was opened: whatever moves the cells ends the edit first.
LRESULT CCalendarCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    if (m_access.Answer(*this, message, wParam, lParam, result)) {
        return result;
    }
    const WindowAlive alive(this, m_life);
    if (m_pEdit && (message == WM_SIZE || message == WM_VSCROLL || message == WM_HSCROLL)) {
        FinishEdit(TRUE);
    } else if (message == WM_KEYDOWN && wParam != VK_SHIFT && wParam != VK_CONTROL && wParam != VK_ESCAPE) {
        ShowFocus(true); // reaches the host's windows, too; Escape belongs to the mouse as well
    } else if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN) {
        ShowFocus(false);
    }
    if (!alive) {
        return 0;
    }
    if (message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX) {
        if (const LRESULT brush = ColorChild(reinterpret_cast<HDC>(wParam))) {
            return brush;
        }
    }
    if (message == WM_SHOWWINDOW && !wParam) {
        m_interaction->buffer.Free();
    }
    if (message == WM_SETFONT) {
        TakeFont(reinterpret_cast<HFONT>(wParam));
        return 0;
    }
    result = HandleAndReport(message, wParam, lParam);
    if (alive && m_options.followDpi) {
        FollowDpi(message, wParam);
    }
    if (alive) {
        m_access.Follow();
    }
    return result;
}

void CCalendarCtrl::OnDestroy()
{
    *m_feedWindow = nullptr;
    m_bFeedPosted = FALSE;
    m_interaction->today.Stop();
    m_interaction->tip.Destroy();
    m_interaction->buffer.Free();
    m_interaction->isEnding = true;
    CancelTracking();
    if (m_pEdit) {
        m_pEdit->Finish(FALSE);
    }
    CWnd::OnDestroy();
    for (int slot = 0; slot < 3; ++slot) {
        m_fontCache[slot].DeleteObject();
    }
}

void CCalendarCtrl::PostNcDestroy()
{
    *m_pointer = PointerDriver();
    m_pointer->SetScale(m_scale);
    m_bShiftExtend = m_bEditing = m_bHasFocus = FALSE;
    m_interaction->showsFocus = m_interaction->isEnding = false;
    m_interaction->reports = 0;
    CWnd::PostNcDestroy();
}

// ---- Dates

void CCalendarCtrl::SetCurrentDate(const COleDateTime& date)
{
    m_dtCurrentDate = m_dtSelBegin = m_dtSelEnd = m_dtViewDate = date;
}

void CCalendarCtrl::SetSelDate(const COleDateTime& date)
{
    SetSelRange(date, date);
    InvalidateClient();
}

void CCalendarCtrl::GetViewRange(COleDateTime& first, COleDateTime& last)
{
    first = last = GetCurrentDate();
}

void CCalendarCtrl::SetFirstDayOfWeek(int nDay)
{
    if (nDay < 1 || nDay > kDaysPerWeek) {
        AfxThrowInvalidArgException();
    }
    m_nFirstDayOfWeek = nDay;
    const WindowAlive alive(this, m_life);
    SetCurrentDate(GetCurrentDate());
    if (alive && m_hWnd) {
        UpdateScreenItems(); // the days have moved
        InvalidateClient();
    }
}

// ---- Day colours and properties

void CCalendarCtrl::SetDayColor(COleDateTime date, int nColor)
{
    tagCALENDAR_DAY_PROPERTY property;
    property.nDayColor = nColor;
    SetDayProperty(date, property);
}

CString CCalendarCtrl::WhatsToday(COleDateTime date)
{
    return dayvane::WhatsToday(date);
}

void CCalendarCtrl::SetDayProvider(const DayProvider* pProvider)
{
    m_pDayProvider = pProvider;
    DayProviderChanged();
    if (m_hWnd && m_dayLines.HasLines()) {
        Refresh(); // the lines may take more room
    } else if (m_hWnd) {
        Invalidate(FALSE);
    }
}

void CCalendarCtrl::SetDayLines(const DayLines& lines)
{
    if (lines.eraTitles) {
        UseSystemEras();
    }
    m_dayLines = lines;
    DayProviderChanged();
    if (m_hWnd) {
        Refresh();
    }
}

// ---- Appearance

int CCalendarCtrl::SetImageList(CImageList* pImageList)
{
    IMAGEINFO info = {};
    if (!pImageList || !pImageList->GetImageInfo(0, &info)) {
        return 0;
    }
    auto copy = std::make_unique<CImageList>();
    if (!copy->Create(pImageList)) {
        return 0;
    }
    m_imageLists.push_back(std::move(copy));
    m_pImageList = m_imageLists.back().get();
    m_cxIcon = info.rcImage.right - info.rcImage.left;
    m_cyIcon = info.rcImage.bottom - info.rcImage.top;
    if (m_hWnd) {
        Invalidate(TRUE);
    }
    return 1;
}

CFont* CCalendarCtrl::GetFont(int nFlags)
{
    const int slot = kSlotOfFontFlags[nFlags & (kFontBold | kFontItalic)];
    CFont& font = m_fontCache[slot];
    if (!font.GetSafeHandle()) {
        LOGFONT lf = Scaled(m_lfFonts[FONT_TEXT], m_scale);
        lf.lfWeight = (nFlags & kFontBold) ? FW_BOLD : FW_NORMAL;
        lf.lfItalic = lf.lfStrikeOut = (nFlags & kFontItalic) ? TRUE : FALSE;
        if (!font.CreateFontIndirect(&lf)) {
            return m_hWnd ? CWnd::GetFont() : nullptr;
        }
    }
    return &font;
}

void CCalendarCtrl::SetOwnColors(CalendarColors colors)
{
    colors.highlight = m_colors.highlight;
    colors.highlightText = m_colors.highlightText;
    colors.noFocus = m_colors.noFocus;
    m_colors = colors;
}

// ---- Texts

void CCalendarCtrl::SetTextCodePage(UINT nCodePage)
{
    m_texts.codePage = nCodePage;
    InvalidateClient();
}

void CCalendarCtrl::SetTexts(const CalendarTexts& texts)
{
    m_texts.words = std::make_shared<const CalendarTexts>(texts);
    if (texts.firstDayOfWeek != 0) {
        SetFirstDayOfWeek(texts.firstDayOfWeek);
    }
    Refresh();
}

// ---- Options

void CCalendarCtrl::SetOptions(const CalendarOptions& options)
{
    const CalendarOptions before = m_options;
    m_options = options;
    m_themeWatch.Follow(options.followSystemTheme);
    if (options.followDpi) {
        FollowDpi(WM_CREATE, 0);
    }
    OptionsChanged(before);
}

// ---- Time grids

void CCalendarCtrl::SetTimeScale(int nRowsPerHour)
{
    if (nRowsPerHour < kMinTimeScale || nRowsPerHour > kMaxTimeScale) {
        AfxThrowInvalidArgException();
    }
    m_nTimeScale = nRowsPerHour;
    if (!m_hWnd) {
        return;
    }
    SCROLLINFO info = {};
    GetScrollInfo(SB_VERT, &info);
    const int row = m_scale.Line(kGridRowHeight);
    const int maximum = std::max((GetMaxGridRows() * row - m_rcContent.Height()) / row + 1, 0);
    const int position = static_cast<int>((info.nPos + 1LL) * maximum / std::max(info.nMax + 1LL, 1LL));
    SetVertScrollBar(*this, 0, maximum, position);
    m_nVertScroll = position * row;
}

int CCalendarCtrl::GetMaxGridRows() const
{
    return m_nTimeScale * kHoursPerDay;
}

int CCalendarCtrl::IsWorkDayOfWeek(int nDayOfWeek) const
{
    return nDayOfWeek >= 1 && nDayOfWeek <= kDaysPerWeek ? m_workDays.bWorkDay[nDayOfWeek - 1] : 0;
}

int CCalendarCtrl::_IsWorkTime(int nRow, COleDateTime start, COleDateTime end) const
{
    const int minute = nRow / m_nTimeScale * kMinutesPerHour + nRow % m_nTimeScale * (kMinutesPerHour / m_nTimeScale);
    const int startMinute = start.GetHour() * kMinutesPerHour + start.GetMinute();
    const int endMinute = end.GetHour() * kMinutesPerHour + end.GetMinute();
    return nRow >= 0 && minute >= startMinute && minute < endMinute;
}

// ---- Hit test

int CCalendarCtrl::HitTest(tagCCHITTESTINFO& info)
{
    info.nItem = info.nScreenItem = -1;
    const CPoint inGrid(info.pt.x, info.pt.y + m_nVertScroll);
    for (int i = 0; i < static_cast<int>(m_arScreenItem.GetSize()) && info.nScreenItem == -1; ++i) {
        if (m_arScreenItem[i].rcItem.PtInRect(inGrid)) {
            info.nItem = static_cast<int>(m_arScreenItem[i].nSource);
            info.nScreenItem = i;
        }
    }
    int row = -1;
    if (info.pt.x >= m_rcContent.left && info.pt.x < m_rcContent.right) {
        const int fromTop = inGrid.y - m_rcContent.top;
        if (fromTop >= 0 && fromTop < kHitRows * kHitRowHeight) {
            row = fromTop / kHitRowHeight;
        }
    }
    if (row != -1) {
        const CivilDate day = CivilDateOf(GetCurrentDate());
        const COleDateTime time(day.year, day.month, day.day, row / 2, 30 * (row % 2), 0);
        ToSystemTime(time, info.time);
    }
    info.nHitCode = info.nItem != -1 ? CCHT_ONITEM : row == -1 ? CCHT_NOWHERE : CCHT_ONCELL;
    return info.nItem;
}

// ---- Notifications

LRESULT CCalendarCtrl::Notify(int nCode, int nItem, int nSubValue, POINT pt, const SYSTEMTIME& time, UINT nFlags)
{
    NMCALENDARITEM record = {};
    record.hdr = NotifyHeader(*this, nCode);
    record.pt = pt;
    record.nSubValue = nSubValue;
    record.nItem = nItem;
    if (nCode != CCN_COMBOSELCHANGE && nItem < GetItemCount()) {
        record.lParam = GetItemData(nItem);
    }
    record.time = time;
    record.nFlags = nFlags;
    return NotifyParent(*this, record.hdr);
}

LRESULT CCalendarCtrl::Notify(int nCode, const COleDateTime& date, const COleDateTime& first, const COleDateTime& last,
                              int nValue)
{
    NMCALENDARDATES record = {};
    record.hdr = NotifyHeader(*this, nCode);
    ToSystemTime(date, record.stDate);
    ToSystemTime(first, record.stFirst);
    ToSystemTime(last, record.stLast);
    record.nValue = nValue;
    return NotifyParent(*this, record.hdr);
}
