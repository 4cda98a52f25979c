// The year view: navigation, combo box, painting.
#include "views/daygrid/YearViewCtrl.h"

#include "core/DateMath.h"
#include "core/ThemePaint.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxViewState.h"

using namespace dayvane;

namespace {

constexpr char kWindowClass[] = "MFCYearViewCtrl";
constexpr char kTitle[] = "Yearly Calendar"; // unless the host sets one
constexpr UINT kMoreBitmap = 18001;

// The combo box, pixels.
constexpr UINT kComboId = 1;
constexpr int kComboRight = 5;    // from the caption's right edge
constexpr int kComboTop = 5;      // from its top
constexpr int kComboWidth = 200;  // after the first change of size
constexpr int kComboBottom = 100; // with its list

constexpr CalendarColors kYearColors = {
    // caption, caption text, ruler, ruler text, content, grid, border
    0x505850, 0xFFFFFF, 0xCE9A63, 0xFFFFFF, 0xFFFFFF, 0xE1BFA5, 0x2299EE};
constexpr CaptionLook kCaption = {{0xD6D97B, 0xA8AB24, 0x8F9300}, 28, DT_VCENTER, DT_END_ELLIPSIS};
constexpr COLORREF kMonthText = 0x000000;

} // namespace

IMPLEMENT_DYNCREATE(CYearViewCtrl, CBoxViewCtrl)

BEGIN_MESSAGE_MAP(CYearViewCtrl, CBoxViewCtrl)
ON_WM_DESTROY()
ON_WM_SIZE()
ON_CBN_SELCHANGE(kComboId, &CYearViewCtrl::OnSelchangeCombo)
END_MESSAGE_MAP()

// ---- Lifetime

CYearViewCtrl::CYearViewCtrl()
    : CBoxViewCtrl({RangeKind::Year, kWindowClass, kTitle, kYearMetrics, kYearColors}),
      m_rcMonth(m_state->layout.grid.boxes.data()), m_rcMonthCaption(m_state->layout.strips.data()),
      m_bMore(m_state->more.data())
{
    m_pOwnType = &typeid(CYearViewCtrl);
    SetRange(Now());
}

CYearViewCtrl::~CYearViewCtrl()
{
    DestroyWindow();
}

void CYearViewCtrl::PreSubclassWindow()
{
    CBoxViewCtrl::PreSubclassWindow();
    if (!m_bmMore.GetSafeHandle()) {
        m_bmMore.LoadBitmap(kMoreBitmap);
    }
}

void CYearViewCtrl::OnDestroy()
{
    CBoxViewCtrl::OnDestroy();
    m_bmMore.DeleteObject();
    m_bComboBox = 0; // it goes with the window
    m_pComboBox = nullptr;
    m_hComboBox = nullptr;
}

// ---- Size and combo box

void CYearViewCtrl::OnSize(UINT nType, int cx, int cy)
{
    CBoxViewCtrl::OnSize(nType, cx, cy);
    PlaceCombo();
}

void CYearViewCtrl::ScaleChanged(const ViewScale& before)
{
    const WindowAlive alive(this, m_life);
    CBoxViewCtrl::ScaleChanged(before); // the combo box's font is gone
    if (!alive) {
        return;
    }
    if (CComboBox* combo = LiveCombo()) {
        combo->SetFont(GetFont(0), TRUE);
        PlaceCombo();
    }
}

void CYearViewCtrl::PlaceCombo()
{
    if (CComboBox* combo = LiveCombo()) {
        const int left = m_rcCaption.right - m_scale.Of(kComboRight) - m_scale.Of(kComboWidth);
        const CRect rect(left, m_rcCaption.top + m_scale.Of(kComboTop), left + m_scale.Of(kComboWidth),
                         m_scale.Of(kComboBottom));
        combo->MoveWindow(&rect, TRUE);
    }
}

int CYearViewCtrl::CreateComboBox(CComboBox* pCombo, UINT, int nWidth, DWORD dwStyle, CWnd*)
{
    m_bComboBox = 0;
    if (!m_hWnd || !pCombo || pCombo->m_hWnd) {
        return 0;
    }
    if (!pCombo->Create(dwStyle | WS_CHILD, CRect(1, 1, nWidth, m_scale.Of(kComboBottom)), this, kComboId)) {
        return 0;
    }
    ModifyStyle(0, WS_CLIPCHILDREN); // the view paints the whole title band
    m_bComboBox = 1;
    m_pComboBox = pCombo;
    m_hComboBox = pCombo->m_hWnd;
    pCombo->SetFont(GetFont(0), TRUE);
    return 1;
}

// The host may have destroyed the combo box, and its object with it.
CComboBox* CYearViewCtrl::LiveCombo() const
{
    const bool isThere = m_bComboBox == 1 && ::GetParent(m_hComboBox) == m_hWnd &&
                         CWnd::FromHandlePermanent(m_hComboBox) == static_cast<CWnd*>(m_pComboBox);
    return isThere ? m_pComboBox : nullptr;
}

void CYearViewCtrl::OnSelchangeCombo()
{
    CComboBox* combo = LiveCombo();
    if (!combo) {
        return;
    }
    const int selected = combo->GetCurSel();
    SYSTEMTIME time = {};
    ToSystemTime(GetCurrentDate(), time);
    Notify(CCN_COMBOSELCHANGE, selected, selected, CPoint(-1, -1), time, CCHT_NOWHERE);
}

// ---- Painting

// The days of the whole item, not of its piece.
std::u16string CYearViewCtrl::GetBarText(const tagCALENDAR_ITEM& item, BOOL)
{
    const bool isStored = item.nSource >= 0 && item.nSource < m_arItem.GetSize();
    const tagCALENDAR_ITEM& whole = isStored ? m_arItem[item.nSource] : item;
    return YearBarText(whole.dtStart, whole.dtEnd, item.strText, m_texts);
}

void CYearViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    CaptionTexts texts;
    if (Range().HasDates()) {
        const bool isOwnTitle = m_strTitle == kTitle && !GetTexts().yearTitle.empty();
        texts.number = m_texts.Date(&CalendarTexts::year, m_dtRangeStart);
        texts.text = u"  " + (isOwnTitle ? GetTexts().yearTitle : m_texts.HostText(m_strTitle)) +
                     OwnText(TitleNote(m_dtRangeStart, m_dtRangeEnd, TitleUnit::Year, 0, m_dayLines));
    }
    CaptionLook look = kCaption;
    if (m_colors.caption != kYearColors.caption) {
        look.band = {Paler(m_colors.caption), m_colors.caption, m_colors.caption};
    }
    PainterOn(pDC).DrawCaption(rcCaption, look, texts, m_lfFonts[FONT_TEXT]);
}

void CYearViewCtrl::DrawBoxStrip(CDC* pDC, int nBox)
{
    DrawMonthCaption(pDC, m_rcMonthCaption[nBox]);
}

void CYearViewCtrl::DrawMonthCaption(CDC* pDC, const CRect& rcCaption)
{
    const int month = BoxOfStrip(rcCaption);
    if (month == -1 || (!IsToday(month) && !IsBoxSelected(month))) {
        DrawHeaderBand(pDC, rcCaption, HeaderBandOf(m_theme.header, kHeaderBand));
    }
    if (month != -1 && Range().HasDates()) {
        PainterOn(pDC).DrawStripTexts(rcCaption, TextsOf(month));
    }
}

StripTexts CYearViewCtrl::TextsOf(int nMonth)
{
    const COLORREF textColor = IsBoxSelected(nMonth) ? m_colors.highlightText : ThemeOr(m_theme.headerText, kMonthText);
    const COLORREF nameColor =
        IsBoxSelected(nMonth) || IsToday(nMonth) ? textColor : ThemeOr(m_theme.headerText, m_crAccent);
    const COleDateTime first = Range().DateOfBox(nMonth);
    return {m_texts.Date(&CalendarTexts::monthNumber, first), GetTexts().monthSuffix, textColor,
            m_texts.Date(&CalendarTexts::monthName, first), nameColor};
}

void CYearViewCtrl::DrawBoxMark(CDC* pDC, int nBox)
{
    if (DrawsOwnMark()) {
        DrawMoreMark(pDC, m_rcMonth[nBox]);
        return;
    }
    BITMAP bitmap = {};
    if (!m_bmMore.GetSafeHandle() || !m_bmMore.GetBitmap(&bitmap)) {
        return;
    }
    CDC memory;
    if (!memory.CreateCompatibleDC(pDC)) {
        return;
    }
    const SelectGdi selectBitmap(&memory, &m_bmMore);
    const CRect& box = m_rcMonth[nBox];
    pDC->BitBlt(box.right - bitmap.bmWidth, box.bottom - bitmap.bmHeight, bitmap.bmWidth, bitmap.bmHeight, &memory, 0,
                0, SRCCOPY);
}
