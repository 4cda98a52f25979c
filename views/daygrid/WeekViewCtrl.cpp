// The week view: dates of the boxes, navigation, painting.
#include "views/daygrid/WeekViewCtrl.h"

#include "core/DateMath.h"
#include "core/ThemePaint.h"
#include "views/daygrid/BoxPainter.h"
#include "views/daygrid/BoxViewState.h"

#include <clocale>

using namespace dayvane;

namespace {

constexpr char kWindowClass[] = "MFCWeekViewCtrl";
constexpr int kLastShown = kWeekBoxes - 1; // days from the first to the last

constexpr CalendarColors kWeekColors = {
    // caption, caption text, ruler, ruler text, content, grid, border
    0x8F9300, 0xFFFFFF, 0xCE9A63, 0xCF9365, 0xFFFFFF, 0xE1BFA5, 0x2299EE};
constexpr CaptionLook kCaption = {{0x7BDFBD, 0x24B26B, 0x39964A}, 28, DT_VCENTER, DT_END_ELLIPSIS};
constexpr HeaderBandColors kNextWeekStrip = {0xF4E8DC, 0xF0DED1, 0xECD5C4, 0xEFDDCE}; // the eighth day

constexpr COLORREF kDayText = 0x000000;
constexpr COLORREF kSaturdayText = 0xFF0000;
constexpr COLORREF kDayOffText = 0x0000FF; // Sundays and holidays

// Where names are the C runtime's, painting leaves its locale of times at "C".
std::u16string WeekdayText(const TextSettings& texts, const COleDateTime& date)
{
    if (texts.words->weekdays[0].empty()) {
        std::setlocale(LC_TIME, "C");
    }
    return texts.Date(&CalendarTexts::stripWeekday, date);
}

} // namespace

IMPLEMENT_DYNCREATE(CWeekViewCtrl, CBoxViewCtrl)

// ---- Lifetime

CWeekViewCtrl::CWeekViewCtrl()
    : CBoxViewCtrl({RangeKind::Week, kWindowClass, "Weekly Calendar", kWeekMetrics, kWeekColors}),
      m_rcDay(m_state->layout.grid.boxes.data()), m_rcDayCaption(m_state->layout.strips.data()),
      m_bMore(m_state->more.data())
{
    m_pOwnType = &typeid(CWeekViewCtrl);
    SetRange(Now());
}

CWeekViewCtrl::~CWeekViewCtrl()
{
    DestroyWindow();
}

// ---- Dates

COleDateTime CWeekViewCtrl::GetCurrentDate()
{
    return m_dtSelBegin.m_dt != 0.0 ? COleDateTime(m_dtSelBegin.m_dt) : m_dtCurrentDate;
}

void CWeekViewCtrl::SetCurrentDate(const COleDateTime& date)
{
    CBoxViewCtrl::SetCurrentDate(StartOfDay(date));
}

void CWeekViewCtrl::RangeChanged()
{
    FillDays(Range(), Range().FirstDate(), Now(), GetDayProvider(), m_arDayDate);
}

BOOL CWeekViewCtrl::HasMoreMark(int nBox)
{
    return nBox != kLastShown && CBoxViewCtrl::HasMoreMark(nBox);
}

// ---- Painting

std::u16string CWeekViewCtrl::GetBarText(const tagCALENDAR_ITEM& item, BOOL bFullday)
{
    return WeekBarText(item, bFullday != FALSE, m_texts);
}

void CWeekViewCtrl::DrawCaption(CDC* pDC, CRect rcCaption)
{
    CaptionTexts texts;
    const CivilDate first = CivilDateOf(m_dtRangeStart);
    const CivilDate last = CivilDateOf(m_dtRangeEnd);
    if (first.year != -1 && last.year != -1) {
        texts.number = m_texts.Date(&CalendarTexts::captionDay, m_dtRangeStart) + u" - " +
                       m_texts.Date(&CalendarTexts::captionDay, m_dtRangeEnd);
        texts.text = u"  " + m_texts.Date(&CalendarTexts::weekDate, m_dtRangeStart) + u" - " +
                     m_texts.Date(&CalendarTexts::weekDate, m_dtRangeEnd) +
                     OwnText(TitleNote(m_dtRangeStart, Range().DateOfBox(kDaysPerWeek - 1), TitleUnit::Month,
                                       m_nFirstDayOfWeek, m_dayLines));
    }
    PainterOn(pDC).DrawCaption(rcCaption, kCaption, texts, m_lfFonts[FONT_TEXT]);
}

DayLook CWeekViewCtrl::LookOf(int nDay)
{
    DayLookInput input = LookOfDays();
    input.showSelection = IsBoxSelected(nDay) != FALSE;
    input.firstSelected = INT_MIN;
    input.lastSelected = INT_MAX;
    input.dimOtherMonths = false; // a week looks the same in every month
    DayLook look = CalcDayLook(m_arDayDate[nDay], false, GetDayColor(nDay), input);
    // The host's own ground is that of ordinary days.
    const bool hasGround = m_colors.content != kWeekColors.content && m_theme.page == CalendarTheme::kOwn;
    if (hasGround && look.background == input.colors[DAYROW_ORDINARY].crColor[DAYCOLOR_BACKGROUND]) {
        look.background = m_colors.content;
    }
    return look;
}

COLORREF CWeekViewCtrl::GetBoxColor(int nBox)
{
    return LookOf(nBox).background;
}

BOOL CWeekViewCtrl::HasBoxColor(int nBox)
{
    return HasColorRow(m_arDayDate[nBox], GetDayColor(nBox), m_arDayColors);
}

void CWeekViewCtrl::DrawBoxStrip(CDC* pDC, int nBox)
{
    DrawDayCaption(pDC, m_rcDayCaption[nBox]);
}

void CWeekViewCtrl::DrawDayCaption(CDC* pDC, const CRect& rcCaption)
{
    const int day = BoxOfStrip(rcCaption);
    const bool isNextWeek = day == kLastShown;
    if (day == -1 || (!IsToday(day) && !IsBoxSelected(day))) {
        DrawHeaderBand(pDC, rcCaption,
                       isNextWeek ? HeaderBandOf(m_theme.headerOther, kNextWeekStrip)
                                  : HeaderBandOf(m_theme.header, kHeaderBand));
    }
    if (day == -1 || !IsValid(m_arDayDate[day].m_date)) {
        return;
    }
    PainterOn(pDC).DrawStripTexts(rcCaption, TextsOf(day));
}

StripTexts CWeekViewCtrl::TextsOf(int nDay)
{
    const COleDateTime& date = m_arDayDate[nDay].m_date;
    const DayLook look = LookOf(nDay);
    const bool isDayOff = m_arDayDate[nDay].m_bHoliday == 1 && m_arDayDate[nDay].m_nHolidayType == 0;
    const int dayOfWeek = date.GetDayOfWeek();
    COLORREF color = dayOfWeek == kSunday || isDayOff ? ThemeOr(m_theme.headerHoliday, kDayOffText)
                     : dayOfWeek == kSaturday         ? ThemeOr(m_theme.headerSaturday, kSaturdayText)
                                                      : ThemeOr(m_theme.headerText, kDayText);
    if (look.selected) {
        color = m_colors.highlightText;
    }
    return {m_texts.Date(&CalendarTexts::monthDay, date),
            WeekdayText(m_texts, date),
            color,
            look.annotation,
            look.annotationColor,
            look.dayAlone};
}
