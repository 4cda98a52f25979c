#include "BenchViews.h"

#include "tests/daygrid/LiteralMonth.h"
#include "views/daygrid/MonthViewCtrl.h"

#include <cstdio>
#include <cstring>

namespace bench
{
namespace
{

class BenchMonth : public CMonthViewCtrl, public BenchView
{
public:
    CCalendarCtrl& Control() override { return *this; }
    void Paint(CDC* pDC) override { DrawCtrl(pDC); }
    void LayOutLiterally(int cx, int cy) override
    {
        CalcLayout(CRect(0, 0, cx, cy), m_rcCaption, m_rcRuler, m_rcContent);
        CalcCellRect(m_rcRuler, m_rcContent);
        literal::MakePieces(m_arItem, m_arCellDate[0].m_date, m_arScreenItem);
        literal::CalcMonthBars(m_arCellDate, m_arCell, m_nFirstDayOfWeek, m_arScreenItem);
        ScreenItemsChanged();
    }
};

template <class View>
std::unique_ptr<BenchView> Make()
{
    return std::make_unique<View>();
}

constexpr BenchViewEntry kViews[] = {
    {"month", &Make<BenchMonth>},
};

} // namespace

const BenchViewEntry* FindView(const char* name)
{
    for (const BenchViewEntry& entry : kViews) {
        if (std::strcmp(entry.name, name) == 0)
            return &entry;
    }
    return nullptr;
}

void PrintViewNames()
{
    for (const BenchViewEntry& entry : kViews)
        std::fprintf(stderr, " %s", entry.name);
}

} // namespace bench
