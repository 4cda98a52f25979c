// The commands of View > Days, and what the status bar says of the selected day.
#include "core/SystemEras.h"
#include "planner/PlannerFrame.h"
#include "planner/DocumentFile.h"
#include "planner/Settings.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"
#include "views/timegrid/TimeGridCtrl.h"
#include "views/timegrid/ZoneRuler.h"

#include <afxdlgs.h>

#include <algorithm>

namespace {

constexpr char kDays[] = "Days"; // in the settings
constexpr char kListFilter[] = "CSV (*.csv)|*.csv|*.*|*.*|";
constexpr int kPanePadding = 16; // pixels on both sides of the text together

const char* const kZones[] = {"",
                              "UTC",
                              "Europe/London",
                              "Europe/Berlin",
                              "America/New_York",
                              "America/Los_Angeles",
                              "Asia/Kolkata",
                              "Asia/Shanghai",
                              "Asia/Tokyo",
                              "Australia/Brisbane"};

// "New York" of "America/New_York"
CString CityOf(const std::string& zone)
{
    CString city(zone.substr(zone.find('/') + 1).c_str());
    city.Replace('_', ' ');
    return city;
}

} // namespace

void CPlannerFrame::BeginDayChoices()
{
    m_days = s_start.days;
    SpeakOfDays();
    dayvane::UseSystemEras();
}

void CPlannerFrame::SpeakOfDays()
{
    const bool isJapanese = planner::CurrentLanguage() == planner::Language::Japanese;
    m_days.lines.language = isJapanese ? dayvane::DayLanguage::Japanese : dayvane::DayLanguage::English;
    m_days.lines.eraTitles = m_days.isChosen ? m_days.lines.eraTitles : isJapanese;
    planner::TheDays().SetLanguage(m_days.lines.language);
}

void CPlannerFrame::ApplyDays(CCalendarCtrl& ctrl)
{
    ctrl.SetDayLines(m_days.lines);
    m_sidePane.Calendar().ShowEraTitles(m_days.lines.eraTitles);
    m_sidePane.ShowWeekNumbers(m_days.lines.weekNumbers, m_days.lines.weekRule);
    m_toolBar.ShowEraTitles(m_days.lines.eraTitles);
    RecalcLayout(); // the column of week numbers makes the side pane wider
    CTimeGridCtrl* grid = DYNAMIC_DOWNCAST(CTimeGridCtrl, &ctrl);
    if (!grid) {
        return;
    }
    grid->SetWorkHours(planner::DayChoices::OfficeHours(m_days.lunchBreak));
    const planner::ZonePtr own = Document() ? Document()->Calendar().DisplayZone() : nullptr;
    const planner::ZonePtr other = dayvane::ical::FindCommonZone(m_days.secondClock);
    dayvane::ZoneRuler ruler;
    ruler.showOther = own && other && other != own;
    if (own) {
        ruler.own = planner::ClockOf(*own);
        ruler.ownLabel = CityOf(own->Id());
    }
    if (ruler.showOther) {
        ruler.other = planner::ClockOf(*other);
        ruler.otherLabel = CityOf(other->Id());
    }
    if (own) {
        grid->SetZoneRuler(ruler);
    } else {
        grid->ClearZoneRuler(); // without a zone of its own there is nothing to compare with
    }
}

void CPlannerFrame::OnDayChoice(UINT nID)
{
    bool& choice = *m_days.At(nID - ID_DAYS_SHOWN_FIRST);
    choice = !choice;
    m_days.isChosen = true;
    m_day = ShownDay();
    SetUpView();
}

void CPlannerFrame::OnUpdateDayChoice(CCmdUI* pCmdUI)
{
    pCmdUI->SetCheck(*m_days.At(pCmdUI->m_nID - ID_DAYS_SHOWN_FIRST));
}

void CPlannerFrame::OnZone(UINT nID)
{
    m_days.secondClock = kZones[nID - ID_ZONE_FIRST];
    m_day = ShownDay();
    SetUpView();
}

void CPlannerFrame::OnUpdateZone(CCmdUI* pCmdUI)
{
    const bool hasOwn = Document() && Document()->Calendar().DisplayZone() != nullptr;
    pCmdUI->Enable(m_view.row->hasTimes && (hasOwn || pCmdUI->m_nID == ID_ZONE_FIRST));
    pCmdUI->SetRadio(m_days.secondClock == kZones[pCmdUI->m_nID - ID_ZONE_FIRST]);
}

// ---- The list of holidays

void CPlannerFrame::OnLoadHolidays()
{
    std::string path;
    if (planner::PromptFile(this, planner::FilePrompt::Open, kListFilter, "csv", path)) {
        ShowHolidaysOf(path);
    }
}

void CPlannerFrame::OnHolidaysByLaw()
{
    ShowHolidaysOf("");
}

void CPlannerFrame::OnUpdateHolidaysByLaw(CCmdUI* pCmdUI)
{
    pCmdUI->SetCheck(m_holidayList.empty());
}

void CPlannerFrame::ShowHolidaysOf(const std::string& path)
{
    const auto bytes = path.empty() ? std::optional<std::string>() : planner::ReadWholeFile(path);
    if (!path.empty() && !bytes) {
        ShowProblem(planner::Tr("%1 cannot be read.", path));
        return;
    }
    planner::HolidayListReport report;
    if (bytes) {
        report = planner::LoadHolidays(planner::TheDays(), *bytes);
        ShowMessages(report.problems);
    } else {
        planner::TheDays().ClearLoadedHolidays();
    }
    m_holidayList = report.days > 0 || path.empty() ? path : m_holidayList;
    m_day = ShownDay();
    SetUpView();
    if (!bytes) {
        ShowStatus(planner::Tr("The holidays are those of the law"));
    } else if (report.days == 0) {
        ShowProblem(planner::Tr("There is no holiday in %1", path));
    } else {
        ShowStatus(planner::Tr("%1 holidays taken from %2", std::to_string(report.days), path));
    }
}

// From one start to the next. What nobody has chosen stays as the planner's makers think.
void CPlannerFrame::KeepDays()
{
    planner::IniText& ini = planner::TheSettings().Text();
    ini.Set(kDays, "shown", m_days.isChosen ? m_days.Words() : std::string());
    ini.Set(kDays, "secondClock", m_days.secondClock);
    ini.Set(kDays, "holidays", m_holidayList);
}

// The pane is as wide as its text.
void CPlannerFrame::ShowDayNotes(const COleDateTime& day)
{
    const int firstDayOfWeek = m_mondayFirst ? dayvane::kMonday : dayvane::kSunday; // one number in all views
    const std::string status =
        planner::DayStatus(dayvane::CivilDateOf(day), planner::TheDays(), firstDayOfWeek, m_days.lines);
    const std::wstring text = planner::Wide(status);
    CClientDC dc(&m_statusBar);
    CFont* font = m_statusBar.GetFont();
    CFont* before = font ? dc.SelectObject(font) : nullptr;
    SIZE size = {};
    ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    CRect bar;
    m_statusBar.GetClientRect(&bar);
    const int room = bar.Width() - MulDiv(kCountPaneWidth, m_dpi, dayvane::kBaseDpi); // the end is what may be missing
    const int width = std::max(std::min(static_cast<int>(size.cx) + kPanePadding, room), 0);
    if (before) {
        dc.SelectObject(before);
    }
    m_statusBar.SetPaneInfo(kDayPane, 0, 0, width);
    ::SendMessageW(m_statusBar, SB_SETTEXTW, kDayPane, reinterpret_cast<LPARAM>(text.c_str()));
}
