// Draws the date selectors for the gallery: selector_pictures FOLDER leaves selectors-THEME-SCALE-LANGUAGE.bmp there,
// on each of them days, months, and the button with its open chooser.
#include "core/CalendarClock.h"
#include "pickers/MiniCalendarCtrl.h"
#include "pickers/MiniCalendarCtrl2.h"
#include "pickers/YearMonthPickerCtrl.h"
#include "pickers/YearMonthPopup.h"
#include "support/Input.h"
#include "support/MemoryDc.h"
#include "support/RecordingParent.h"

#include <algorithm>
#include <cstdio>
#include <string>

using namespace testsupport;

namespace {

constexpr UINT kId = 77;
constexpr int kGap = 12;            // between the selectors, pixels at 100 %
constexpr SIZE kSheet = {418, 174}; // at 100 %

COleDateTime Day(int day)
{
    return COleDateTime(2026, 11, day, 0, 0, 0);
}

struct Look
{
    const char* theme;
    int scale; // per cent
    const char* language;

    CalendarTheme Theme() const { return *theme == 'd' ? CalendarTheme::Dark() : CalendarTheme::Calm(); }
    CalendarTexts Texts() const { return *language == 'j' ? CalendarTexts::Japanese() : CalendarTexts::English(); }
    int Px(int pixels) const { return pixels * scale / 100; }
    std::string Name() const { return std::string(theme) + "-" + std::to_string(scale) + "-" + language; }
};

// One picture; selectors are put on it from left to right.
class Sheet
{
public:
    explicit Sheet(const Look& look)
        : m_look(look), m_picture(look.Px(kSheet.cx), look.Px(kSheet.cy), look.Theme().header), m_x(look.Px(kGap))
    {
    }
    void Put(CWnd& window, int top)
    {
        PumpMessages();
        window.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        CRect client;
        window.GetClientRect(&client);
        CClientDC dc(&window);
        m_picture.Dc().BitBlt(m_x, top, client.Width(), client.Height(), &dc, 0, 0, SRCCOPY);
        m_width = std::max<int>(m_width, client.Width());
    }
    void Next()
    {
        m_x += m_width + m_look.Px(kGap);
        m_width = 0;
    }
    bool Save(const std::string& folder) const
    {
        const std::string file = folder + "\\selectors-" + m_look.Name() + ".bmp";
        return m_picture.Save(file.c_str());
    }

private:
    Look m_look;
    MemoryDc m_picture;
    int m_x;
    int m_width = 0;
};

template <class Selector>
void Dress(Selector& selector, const Look& look)
{
    selector.SetTheme(look.Theme());
    selector.SetTexts(look.Texts());
    selector.SetScale(96 * look.scale / 100);
}

template <class Calendar>
void PutCalendar(Sheet& sheet, const Look& look, CWnd& parent)
{
    Calendar calendar;
    Dress(calendar, look);
    calendar.Create(WS_CHILD | WS_VISIBLE, CRect(CPoint(0, 0), calendar.GetGridSize()), &parent, kId);
    calendar.SetDotCallback([](const COleDateTime& day, LPARAM) {
        return day.GetStatus() == COleDateTime::valid && day.GetDay() % 5 == 0 ? RGB(90, 143, 203) : CLR_NONE;
    });
    calendar.SetSel(Day(12), Day(14));
    calendar.Refresh();
    sheet.Put(calendar, look.Px(kGap));
    sheet.Next();
    calendar.DestroyWindow();
}

void PutPicker(Sheet& sheet, const Look& look, CWnd& parent)
{
    CYearMonthPickerCtrl picker;
    Dress(picker, look);
    picker.Create("", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(0, 0, look.Px(120), look.Px(24)), &parent, kId);
    picker.SetWindowSize();
    sheet.Put(picker, look.Px(kGap));
    CRect button;
    picker.GetClientRect(&button);
    picker.OnClicked();
    if (picker.GetPopup()) {
        sheet.Put(*picker.GetPopup(), look.Px(kGap) + button.Height());
    }
    sheet.Next();
    picker.DestroyWindow();
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2 || !AfxWinInit(::GetModuleHandle(nullptr), nullptr, ::GetCommandLine(), SW_SHOWNORMAL)) {
        std::printf("selector_pictures FOLDER\n");
        return 2;
    }
    SetCalendarClock([] { return Day(20); });
    ::SetCursorPos(2000, 2000);
    bool isSaved = true;
    for (const char* theme : {"light", "dark"}) {
        for (const int scale : {100, 200}) {
            for (const char* language : {"ja", "en"}) {
                const Look look = {theme, scale, language};
                RecordingParent parent;
                parent.Create(look.Px(kSheet.cx), look.Px(kSheet.cy));
                Sheet sheet(look);
                PutCalendar<CMiniCalendarCtrl>(sheet, look, parent);
                PutCalendar<CMiniCalendarCtrl2>(sheet, look, parent);
                PutPicker(sheet, look, parent);
                isSaved = sheet.Save(arguments[1]) && isSaved;
            }
        }
    }
    SetCalendarClock(nullptr);
    return isSaved ? 0 : 1;
}
