// The planner's window on a real file.
#pragma once

#include "core/DateMath.h"
#include "planner/ItemBridge.h"
#include "planner/PlannerFrame.h"
#include "planner/WideText.h"
#include "planner/resource.h"
#include "tests/ical/CalendarTesting.h"
#include "tests/support/Input.h"
#include "views/daygrid/MonthViewCtrl.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

namespace plannertesting {

using namespace testsupport;
using planner::At;

inline const std::string kFile = planner::Joined(
    {"BEGIN:VCALENDAR", "X-UNKNOWN;a=b:kept as it is", "BEGIN:VEVENT", "UID:meeting", "DTSTART:20260415T093000",
     "DTEND:20260415T103000", "SUMMARY:Meeting", "X-ALSO:kept", "END:VEVENT", "BEGIN:VEVENT", "UID:trip",
     "DTSTART;VALUE=DATE:20260421", "DTEND;VALUE=DATE:20260424", "SUMMARY:Trip", "END:VEVENT", "END:VCALENDAR"});

inline std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

class PlannerWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        ::SetCursorPos(::GetSystemMetrics(SM_CXSCREEN) - 1, ::GetSystemMetrics(SM_CYSCREEN) - 1); // off the window
        char folder[MAX_PATH], name[MAX_PATH];
        ::GetTempPath(MAX_PATH, folder);
        ::GetTempFileName(folder, "ics", 0, name);
        m_path = name;
        std::ofstream(m_path, std::ios::binary) << FileText();
        CPlannerFrame::Start& start = CPlannerFrame::s_start;
        start.view = planner::FindView("month");
        start.day = COleDateTime(2026, 4, 15, 0, 0, 0);
        m_template = std::make_unique<CSingleDocTemplate>(IDR_MAINFRAME, RUNTIME_CLASS(CPlannerDoc),
                                                          RUNTIME_CLASS(CPlannerFrame), start.view.row->viewClass);
        CDocument* document = m_template->OpenDocumentFile(m_path.c_str());
        ASSERT_TRUE(document);
        m_document = static_cast<CPlannerDoc*>(document);
        POSITION first = document->GetFirstViewPosition();
        m_frame = static_cast<CPlannerFrame*>(document->GetNextView(first)->GetParentFrame());
        PumpMessages();
    }
    void TearDown() override
    {
        planner::SetAnswerer({});
        m_frame->DestroyWindow();
        PumpMessages();
        m_template.reset();
        std::remove(m_path.c_str());
    }

    virtual std::string FileText() { return kFile; }
    CCalendarCtrl& Ctrl() { return *m_frame->Items().Ctrl(); }
    std::string Bytes() { return m_document->Calendar().Save(); }

    std::string StatusText()
    {
        char text[256] = "";
        m_frame->GetDlgItem(AFX_IDW_STATUS_BAR)->SendMessage(SB_GETTEXT, 0, reinterpret_cast<LPARAM>(text));
        return text;
    }

    // The middle of the first piece of the item of that text, client pixels of the control.
    CPoint PointOf(const char* text)
    {
        for (int i = 0; i < Ctrl().GetScreenItems().GetSize(); ++i) {
            const auto& item = Ctrl().GetScreenItems()[i];
            if (item.strText == text && item.rcItem.top >= 0) {
                return item.rcItem.CenterPoint();
            }
        }
        ADD_FAILURE() << text << " is not shown";
        return CPoint(0, 0);
    }
    // Below the items of the cell, where nothing is hit but the day.
    CPoint CellOf(int day)
    {
        CMonthViewCtrl& month = static_cast<CMonthViewCtrl&>(Ctrl());
        for (int i = 0; i < 42; ++i) {
            const COleDateTime& date = month.GetCellDate(i).m_date;
            if (date.GetMonth() == 4 && date.GetDay() == day) {
                const CRect cell = month.GetCell(i).m_rect;
                return CPoint(cell.CenterPoint().x, cell.bottom - 12);
            }
        }
        return CPoint(0, 0);
    }
    void Key(int key, bool ctrl = false)
    {
        const HWND focus = ::GetFocus();
        ASSERT_TRUE(focus);
        if (ctrl) {
            KeyState held({VK_CONTROL});
            messages::Key(focus, key);
        } else {
            messages::Key(focus, key);
        }
    }
    void TypeAndEnter(const std::string& text)
    {
        messages::Type(::GetFocus(), text);
        Key(VK_RETURN);
    }

    std::string m_path;
    std::unique_ptr<CSingleDocTemplate> m_template;
    CPlannerDoc* m_document = nullptr;
    CPlannerFrame* m_frame = nullptr;
};

} // namespace plannertesting
