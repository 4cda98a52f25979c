#include "BenchViews.h"

#include "core/DateMath.h"
#include "tests/daygrid/LiteralMonth.h"
#include "tests/timegrid/LiteralRules.h"
#include "views/daygrid/BoxViewState.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <cstdio>
#include <cstring>

namespace bench {
namespace {

class BenchMonth : public CMonthViewCtrl, public BenchView
{
public:
    CCalendarCtrl& Control() override { return *this; }
    void Paint(CDC* pDC) override { DrawCtrl(pDC); }
    void ByParts(bool parts) override { UpdateByParts(parts); }
    void LayOutLiterally(int cx, int cy) override
    {
        CalcLayout(CRect(0, 0, cx, cy), m_rcCaption, m_rcRuler, m_rcContent);
        CalcCellRect(m_rcRuler, m_rcContent);
        literal::MakePieces(m_arItem, m_arCellDate[0].m_date, m_arScreenItem);
        literal::CalcMonthBars(m_arCellDate, m_arCell, m_nFirstDayOfWeek, m_arScreenItem);
        ScreenItemsChanged();
    }
};

// The week or the year view.
template <class View, bool months>
class BenchBoxes : public View, public BenchView
{
public:
    CCalendarCtrl& Control() override { return *this; }
    void Paint(CDC* pDC) override { this->DrawCtrl(pDC); }
    void ByParts(bool parts) override { this->UpdateByParts(parts); }
    void LayOutLiterally(int cx, int cy) override
    {
        this->CalcLayout(CRect(0, 0, cx, cy), this->m_rcCaption, this->m_rcRuler, this->m_rcContent);
        const std::vector<CRect>& boxes = this->m_state->layout.grid.boxes;
        literal::BoxView view = {boxes, {}, months};
        for (int box = 0; box < static_cast<int>(boxes.size()); ++box) {
            view.dates.push_back(this->Range().DateOfBox(box));
        }
        const dayvane::DayRows starts = this->Range().Rows();
        std::vector<literal::Range> rows;
        for (size_t row = 0; row + 1 < starts.size(); ++row) {
            rows.push_back({dayvane::DateOfDayNumber(starts[row]),
                            dayvane::EndOfDay(dayvane::DateOfDayNumber(starts[row + 1] - 1))});
        }
        literal::MakePieces(this->m_arItem, rows, this->m_arScreenItem);
        literal::CalcBoxBars(view, this->m_arScreenItem);
        this->ScreenItemsChanged();
    }
};
using BenchWeek = BenchBoxes<CWeekViewCtrl, false>;
using BenchYear = BenchBoxes<CYearViewCtrl, true>;

class BenchDay : public CDayViewCtrl, public BenchView
{
public:
    CCalendarCtrl& Control() override { return *this; }
    void Paint(CDC* pDC) override { DrawCtrl(pDC); }
    void ByParts(bool parts) override { UpdateByParts(parts); }
    void LayOutLiterally(int cx, int cy) override
    {
        SetFulldayItemCount(literal::DayScreenItems(m_arItem, m_dtCurrentDate, m_arScreenItem));
        CalcLayout(CRect(0, 0, cx, cy), m_rcCaption, m_rcRuler, m_rcContent);
        literal::DayItemRects(m_arScreenItem, m_rcContent, m_dtCurrentDate, m_nTimeScale);
        literal::DayLanes(m_arScreenItem, m_rcFulldayContent);
    }
};

// A week.
class BenchWeekDay : public CWeekDayViewCtrl, public BenchView
{
public:
    BenchWeekDay() { SetDateScale(15); }
    CCalendarCtrl& Control() override { return *this; }
    void Paint(CDC* pDC) override { DrawCtrl(pDC); }
    void ByParts(bool parts) override { UpdateByParts(parts); }
    void LayOutLiterally(int cx, int cy) override
    {
        // The same screen items in both ways: their making is linear as it stands.
        MakeScreenItem(m_arItem, m_arScreenItem);
        CalcLayout(CRect(0, 0, cx, cy), m_rcCaption, m_rcRuler, m_rcContent);
        std::vector<CRect> columns;
        for (int i = 0; i < GetMaxDays(); ++i) {
            columns.push_back(GetColumnRect(i));
        }
        literal::ManyDayItemRects(m_arScreenItem, columns, m_dtViewBegin, m_nTimeScale);
        literal::ManyDayLanes(m_arScreenItem, m_rcFulldayContent, columns, m_dtViewBegin);
    }
};

template <class View>
std::unique_ptr<BenchView> Make()
{
    return std::make_unique<View>();
}

constexpr BenchViewEntry kViews[] = {
    {"month", &Make<BenchMonth>, {42, false}},   {"week", &Make<BenchWeek>, {8, false}},
    {"year", &Make<BenchYear>, {365, false}},    {"day", &Make<BenchDay>, {1, true}},
    {"weekday", &Make<BenchWeekDay>, {7, true}},
};

} // namespace

const BenchViewEntry* FindView(const char* name)
{
    for (const BenchViewEntry& entry : kViews) {
        if (std::strcmp(entry.name, name) == 0) {
            return &entry;
        }
    }
    return nullptr;
}

void PrintViewNames()
{
    for (const BenchViewEntry& entry : kViews) {
        std::fprintf(stderr, " %s", entry.name);
    }
}

} // namespace bench
