// The commands of View > Days, and what the status bar tells of the selected day.
#include "core/SystemEras.h"
#include "planner/PlannerFrame.h"
#include "planner/WideText.h"
#include "planner/Words.h"
#include "planner/resource.h"
#include "views/timegrid/TimeGridCtrl.h"
#include "views/timegrid/ZoneRuler.h"

namespace {

constexpr int kPanePadding = 16; // pixels on both sides of the text together

// By the commands' order
const char* const kChoices[] = {"names", "terms", "seasonal", "rokuyo", "lunar", "moon", "weeks", "eras", "lunch"};
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
    const bool isJapanese = planner::CurrentLanguage() == planner::Language::Japanese;
    m_days.lines.language = isJapanese ? dayvane::DayLanguage::Japanese : dayvane::DayLanguage::English;
    m_days.lines.eraTitles = m_days.lines.eraTitles && (isJapanese || m_days.isChosen);
    m_dayNames.SetLanguage(m_days.lines.language);
    dayvane::UseSystemEras();
}

void CPlannerFrame::ApplyDays(CCalendarCtrl& ctrl)
{
    ctrl.SetDayLines(m_days.lines);
    m_sidePane.Calendar().ShowEraTitles(m_days.lines.eraTitles);
    m_sidePane.Calendar().Refresh();
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
    bool& choice = *m_days.Find(kChoices[nID - ID_DAYS_SHOWN_FIRST]);
    choice = !choice;
    m_day = ShownDay();
    SetUpView();
}

void CPlannerFrame::OnUpdateDayChoice(CCmdUI* pCmdUI)
{
    pCmdUI->SetCheck(*m_days.Find(kChoices[pCmdUI->m_nID - ID_DAYS_SHOWN_FIRST]));
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

// The pane is as wide as its text.
void CPlannerFrame::TellDay(const COleDateTime& day)
{
    CCalendarCtrl* ctrl = m_items.Ctrl();
    const int firstDayOfWeek = ctrl ? ctrl->GetFirstDayOfWeek() : dayvane::kSunday;
    const std::string status = planner::DayStatus(dayvane::CivilDateOf(day), m_dayNames, firstDayOfWeek, m_days.lines);
    const std::wstring text = planner::Wide(status);
    CClientDC dc(&m_statusBar);
    CFont* font = m_statusBar.GetFont();
    CFont* before = font ? dc.SelectObject(font) : nullptr;
    SIZE size = {};
    ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    const int width = size.cx + kPanePadding;
    if (before) {
        dc.SelectObject(before);
    }
    m_statusBar.SetPaneInfo(kDayPane, 0, 0, width);
    ::SendMessageW(m_statusBar, SB_SETTEXTW, kDayPane, reinterpret_cast<LPARAM>(text.c_str()));
}
