// The printers of the views on metafiles and on a PostScript printer: what is on the pages, and what DoPrint answers.
#include "calc/DayProvider.h"
#include "core/DateMath.h"
#include "core/MixedText.h"
#include "printing/CalendarPrinter.h"
#include "support/GuiCounts.h"
#include "support/PaperPrinter.h"
#include "support/RecordingParent.h"
#include "tests/printing/PageRecorder.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"
#include "views/timegrid/WeekDayViewCtrl.h"

#include <afxext.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>

using namespace dayvane;
using namespace testsupport;

namespace {

const CSize kA4(2100, 2970);
const COleDateTime kTuesday(2026, 11, 24, 0, 0, 0);

template <class Ctrl>
std::unique_ptr<CCalendarCtrl> Made()
{
    return std::make_unique<Ctrl>();
}

struct ViewRow
{
    const char* name;
    std::unique_ptr<CCalendarCtrl> (*make)();
    int daysAround; // of the items below, how many days before and after the 24th the page shows at least
};
const ViewRow kViews[] = {
    {"day", &Made<CDayViewCtrl>, 0},     {"multi-day", &Made<CWeekDayViewCtrl>, 0}, {"week", &Made<CWeekViewCtrl>, 2},
    {"month", &Made<CMonthViewCtrl>, 6}, {"month 2", &Made<CMonthViewCtrl2>, 6},
};

// Short, for boxes are narrow, and none within another one.
std::string NameOf(int dayOffset, int number)
{
    return "d" + std::to_string(dayOffset + 50) + "n" + std::to_string(number) + "e";
}

// A control with its window, showing the 24th of November 2026.
class ShownCtrl
{
public:
    explicit ShownCtrl(const ViewRow& row) : m_ctrl(row.make())
    {
        m_parent.Create(600, 400);
        m_ctrl->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 600, 400), &m_parent, 1);
        m_ctrl->SetCurrentDate(kTuesday);
    }
    ~ShownCtrl() { m_ctrl->DestroyWindow(); }

    CCalendarCtrl& operator*() { return *m_ctrl; }
    CCalendarCtrl* operator->() { return m_ctrl.get(); }

    // count items with names of their own, an hour each, all on one day.
    void Fill(int count, int dayOffset)
    {
        for (int i = 0; i < count; ++i) {
            tagCC_ITEM item;
            item.dtStart = AddMinutes(AddDays(kTuesday, dayOffset), 8 * 60 + i * 4);
            item.dtEnd = AddMinutes(item.dtStart, 60);
            item.strText.Format("%s", NameOf(dayOffset, i).c_str());
            m_ctrl->AddItem(&item, FALSE, FALSE);
        }
        m_ctrl->Refresh();
    }

private:
    RecordingParent m_parent;
    std::unique_ptr<CCalendarCtrl> m_ctrl;
};

// All pages of a control, on paper of a printer's resolution without a printer.
std::vector<std::vector<DrawnText>> PrintedTexts(CCalendarCtrl& ctrl, CSize paper)
{
    std::vector<std::vector<DrawnText>> pages;
    for (UINT number = 1;; ++number) {
        PageRecorder recorder(paper, nullptr);
        CPrintInfo info;
        info.m_nCurPage = number;
        const int dpi = recorder.Dc().GetDeviceCaps(LOGPIXELSX);
        info.m_rectDraw.SetRect(0, 0, ::MulDiv(paper.cx, dpi, 254), ::MulDiv(paper.cy, dpi, 254));
        if (!ctrl.DoPrint(&recorder.Dc(), &info)) {
            return pages;
        }
        EXPECT_EQ(info.GetMinPage(), 1u);
        EXPECT_GE(info.GetMaxPage(), number);
        pages.push_back(recorder.Texts());
        for (const DrawnText& text : pages.back()) {
            EXPECT_GE(text.bounds.left, -1);
            EXPECT_GE(text.bounds.top, -1);
            EXPECT_LE(text.bounds.right, info.m_rectDraw.right + 1);
            EXPECT_LE(text.bounds.bottom, info.m_rectDraw.bottom + 1);
        }
    }
}

std::wstring Wide(const std::string& words)
{
    return std::wstring(words.begin(), words.end());
}

// How often the words are there; a word that is broken at the end of a narrow line goes on in the next text.
int Count(const std::vector<std::vector<DrawnText>>& pages, const std::wstring& words)
{
    int count = 0;
    for (const auto& page : pages) {
        std::wstring all;
        for (const DrawnText& text : page) {
            all += text.text;
        }
        for (std::size_t at = all.find(words); at != std::wstring::npos; at = all.find(words, at + 1)) {
            ++count;
        }
    }
    return count;
}

const DrawnText* Find(const std::vector<DrawnText>& page, const std::wstring& words)
{
    const auto found =
        std::find_if(page.begin(), page.end(), [&](const DrawnText& text) { return text.text == words; });
    return found == page.end() ? nullptr : &*found;
}

TEST(CalendarPrinters, EachItemIsThereOnceHoweverCrowdedTheDay)
{
    for (const ViewRow& row : kViews) {
        for (const int crowd : {3, 40}) {
            ShownCtrl ctrl(row);
            ctrl.Fill(crowd, 0);
            for (int day = 1; day <= row.daysAround; ++day) {
                ctrl.Fill(2, day <= 2 ? -day : day - 2);
            }
            const auto pages = PrintedTexts(*ctrl, kA4);
            EXPECT_GE(pages.size(), 1u) << row.name;
            EXPECT_EQ(Count(pages, Wide(NameOf(0, 0))), 1) << row.name;
            for (int i = 0; i < crowd; ++i) {
                EXPECT_EQ(Count(pages, Wide(NameOf(0, i))), 1) << row.name << " " << i << " of " << crowd;
            }
            for (int day = 1; day <= row.daysAround; ++day) {
                const std::wstring name = Wide(NameOf(day <= 2 ? -day : day - 2, 1));
                EXPECT_EQ(Count(pages, name), 1) << row.name << " day " << day;
            }
        }
    }
}

TEST(CalendarPrinters, HeadingsStandOverTheirColumns)
{
    ShownCtrl ctrl({"multi-day", &Made<CWeekDayViewCtrl>, 0});
    static_cast<CWeekDayViewCtrl&>(*ctrl).SetDateScale(14); // working week
    ctrl->SetFirstDayOfWeek(2);
    ctrl->SetCurrentDate(kTuesday);
    for (int day = -1; day <= 3; ++day) {
        ctrl.Fill(1, day);
    }
    const auto pages = PrintedTexts(*ctrl, CSize(2970, 2100));
    ASSERT_EQ(pages.size(), 1u);
    const wchar_t* const headings[] = {L"11/23 月", L"11/24 火", L"11/25 水", L"11/26 木", L"11/27 金"};
    for (int day = 0; day < 5; ++day) {
        const DrawnText* heading = Find(pages[0], headings[day]);
        const DrawnText* item = Find(pages[0], Wide(NameOf(day - 1, 0)));
        ASSERT_NE(heading, nullptr) << day;
        ASSERT_NE(item, nullptr) << day;
        const int column = ::MulDiv(2970 - 2 * 120, 96, 254) / 5; // less than a column's width
        const int middle = heading->bounds.CenterPoint().x;
        EXPECT_LT(heading->bounds.bottom, item->bounds.top) << day;
        EXPECT_GT(item->bounds.left, middle - column / 2) << day;
        EXPECT_LT(item->bounds.right, middle + column / 2) << day;
    }
}

TEST(CalendarPrinters, WhatDoPrintAnswers)
{
    for (const ViewRow& row : kViews) {
        ShownCtrl ctrl(row);
        ctrl.Fill(1, 0);
        const auto answer = [&](UINT page) {
            PageRecorder recorder(kA4, nullptr);
            CPrintInfo info;
            info.m_nCurPage = page;
            const int result = ctrl->DoPrint(&recorder.Dc(), &info);
            EXPECT_EQ(recorder.Texts().empty(), result == 0) << row.name << " page " << page;
            return result;
        };
        CPrintInfo info;
        EXPECT_EQ(ctrl->DoPrint(nullptr, &info), 0) << row.name;
        EXPECT_EQ(answer(0), 0) << row.name;
        EXPECT_EQ(answer(1), 1) << row.name;
        EXPECT_EQ(answer(99), 0) << row.name;
        PageRecorder recorder(kA4, nullptr);
        EXPECT_EQ(ctrl->DoPrint(&recorder.Dc(), nullptr), 1) << row.name << " without information: the first page";
    }
}

TEST(CalendarPrinters, AJobKnowsItsPagesAndFreesThemWhenItIsCancelled)
{
    ShownCtrl ctrl(kViews[3]);
    ctrl.Fill(200, 0);
    PageRecorder recorder(kA4, nullptr);
    CPrintInfo info;
    const int pages = ctrl->GetPrinter()->Begin(&recorder.Dc(), &info);
    EXPECT_GT(pages, 1);
    EXPECT_EQ(info.GetMaxPage(), static_cast<UINT>(pages));
    ctrl->DeleteAllItems(); // the job prints what there was when it began
    info.m_nCurPage = 2;
    EXPECT_EQ(ctrl->DoPrint(&recorder.Dc(), &info), 1);
    ctrl->GetPrinter()->End();
    EXPECT_EQ(ctrl->DoPrint(&recorder.Dc(), &info), 0);
    ExpectNothingLeftBy([] {
        ShownCtrl cancelled(kViews[3]);
        cancelled.Fill(200, 0);
        PageRecorder device(kA4, nullptr);
        CPrintInfo job;
        cancelled->GetPrinter()->Begin(&device.Dc(), &job);
        cancelled->DoPrint(&device.Dc(), &job);
    });
}

TEST(CalendarPrinters, TitlesAndListsAreThere)
{
    ShownCtrl ctrl(kViews[3]);
    static_cast<CMonthViewCtrl&>(*ctrl).SetTitle("Office");
    ctrl.Fill(2, 0);
    EXPECT_EQ(Count(PrintedTexts(*ctrl, kA4), L"Office"), 1);
    ctrl->SetPrinter(std::make_unique<CListPrinter>(&*ctrl));
    CCalendarPrinter::Of(*ctrl)->SetPlaces([](int item) { return item == 1 ? CString("Room 1") : CString(); });
    const auto pages = PrintedTexts(*ctrl, kA4);
    EXPECT_EQ(Count(pages, L"Room 1"), 1);
    EXPECT_EQ(Count(pages, L"11月24日（火）"), 1);
    CCalendarCtrl plain;
    EXPECT_EQ(plain.GetPrinter(), nullptr);
    PageRecorder recorder(kA4, nullptr);
    EXPECT_EQ(plain.DoPrint(&recorder.Dc(), nullptr), 0);
}

// The day's own names as the host's provider gives them, and the lines that the view has.
TEST(CalendarPrinters, PagesSayOfADayWhatTheViewSays)
{
    class Founding : public DayProvider
    {
        DayInfo InfoOf(const CivilDate& date) const override
        {
            DayInfo info;
            if (date == CivilDateOf(kTuesday)) {
                info.names = {{u8"創立記念日", DayKind::HostDay}, {u8"小雪", DayKind::SolarTerm}};
                info.isDayOff = true;
            }
            return info;
        }
    } founding;
    ShownCtrl ctrl(kViews[0]);
    ctrl->SetFirstDayOfWeek(2);
    ctrl->SetDayProvider(&founding);
    DayLines lines;
    lines.rokuyo = lines.eraTitles = lines.weekNumbers = lines.moonPhase = true;
    ctrl->SetDayLines(lines);
    const auto has = [&](const wchar_t* words) { return Count(PrintedTexts(*ctrl, kA4), words) > 0; };
    EXPECT_TRUE(has(L"2026年11月24日"));
    for (const wchar_t* words :
         {L"火曜日", L"創立記念日", L"小雪", L"旧暦 10/16", L"先勝", L"満月", L"令和8年", L"第48週"}) {
        EXPECT_TRUE(has(words)) << EncodeText(std::u16string(words, words + ::lstrlenW(words)), kUtf8CodePage);
    }
    ctrl->ShowHoliday(FALSE);
    EXPECT_FALSE(has(L"創立記念日"));
    ctrl->SetTexts(CalendarTexts::English());
    EXPECT_TRUE(has(L"24 November 2026") && has(L"Tuesday") && has(L"lunar 10/16") && has(L"Page 1 of 1"));
    CalendarTexts american = CalendarTexts::English();
    american.time = u"%#I:%M %p";
    american.hour = u"%#I";
    american.hourRest = u" %p";
    american.pageDate = u"%B %#d, %Y";
    ctrl->SetTexts(american);
    ctrl.Fill(1, 0);
    EXPECT_TRUE(has(L"November 24, 2026") &&
                has(L"8:00 AM\x2013"
                    L"9:00 AM") &&
                has(L"PM"));
    PrintOptions japanese;
    japanese.language = PrintLanguage::Japanese;
    ctrl->GetPrinter(); // makes it
    CCalendarPrinter::Of(*ctrl)->SetOptions(japanese);
    EXPECT_TRUE(has(L"2026年11月24日") && has(L"8:00\x2013"
                                              L"9:00"));
}

TEST(CalendarPrinters, EachTextStaysInItsBoxOnAPrinter)
{
    ASSERT_TRUE(AddPaperPrinter(PAPER_PPD));
    CPrintDialog dialog(FALSE);
    ASSERT_TRUE(dialog.GetDefaults());
    for (const ViewRow& row : kViews) {
        for (const CSize paper : {kA4, CSize(2794, 2159)}) {
            ShownCtrl ctrl(row);
            ctrl.Fill(40, 0);
            ctrl->GetPrinter();
            CCalendarPrinter& printer = *CCalendarPrinter::Of(*ctrl);
            for (const Page& page : printer.MakePages(paper)) {
                PageRecorder recorder(paper, dialog.m_pd.hDC);
                PageView view;
                view.dpiX = ::GetDeviceCaps(dialog.m_pd.hDC, LOGPIXELSX);
                view.dpiY = ::GetDeviceCaps(dialog.m_pd.hDC, LOGPIXELSY);
                printer.DrawPage(&recorder.Dc(), page, view);
                const std::vector<DrawnText> drawn = recorder.Texts();
                ASSERT_EQ(drawn.size(), page.texts.size()) << row.name;
                for (std::size_t i = 0; i < drawn.size(); ++i) {
                    const int slack = view.dpiX / 100; // of slanted and rounded letters
                    const CRect box = view.Map(page.texts[i].box);
                    EXPECT_GE(drawn[i].bounds.left, box.left - slack) << row.name << " " << i;
                    EXPECT_LE(drawn[i].bounds.right, box.right + slack) << row.name << " " << i;
                    const InkHeights ink = InkOf(drawn[i]);
                    EXPECT_GE(ink.top, box.top - slack) << row.name << " " << i;
                    EXPECT_LE(ink.bottom, box.bottom + slack) << row.name << " " << i;
                    EXPECT_LT(ink.top, ink.bottom) << row.name << " " << i;
                }
            }
        }
    }
    ::DeleteDC(dialog.m_pd.hDC);
}

// A printer draws a text in its face and nothing else.
TEST(CalendarPrinters, CharactersThatTheFaceLacksComeFromAnother)
{
    ShownCtrl ctrl(kViews[0]);
    ctrl->SetTextCodePage(kUtf8CodePage);
    tagCC_ITEM item;
    item.dtStart = AddMinutes(kTuesday, 9 * 60);
    item.dtEnd = AddMinutes(item.dtStart, 60);
    item.strText = u8"Café 会議 א ع 한 ☺ end";
    ctrl->AddItem(&item, FALSE, FALSE);
    const auto pages = PrintedTexts(*ctrl, kA4);
    int others = 0;
    for (const DrawnText& text : pages.at(0)) {
        HDC hDC = ::CreateCompatibleDC(nullptr);
        const HFONT font = ::CreateFontW(-20, 0, 0, 0, 0, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, text.face.c_str());
        ::SelectObject(hDC, font);
        for (const wchar_t c : text.text) {
            WORD glyph = 0xFFFF;
            ::GetGlyphIndicesW(hDC, &c, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
            const bool isNowhere = glyph == 0xFFFF && FallbackFace(hDC, static_cast<char32_t>(c)) == 0;
            EXPECT_TRUE(glyph != 0xFFFF || isNowhere) << "character " << static_cast<int>(c);
            others += std::wstring(L"\x05D0\x0639\xD55C\x263A").find(c) != std::wstring::npos && glyph != 0xFFFF;
        }
        ::DeleteDC(hDC);
        ::DeleteObject(font);
    }
    EXPECT_GT(others, 0) << "this system has no other face: nothing is tested";
}

// ---- The PostScript driver

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

const struct
{
    const char* name;
    short paper;
    short orientation;
    CSize size; // tenths of a millimetre
    const char* feature;
    short copies;
} kPapers[] = {
    {"A4", DMPAPER_A4, DMORIENT_PORTRAIT, CSize(2100, 2970), "*PageSize A4", 1},
    {"A4 landscape", DMPAPER_A4, DMORIENT_LANDSCAPE, CSize(2970, 2100), "*PageSize A4", 3},
    {"Letter", DMPAPER_LETTER, DMORIENT_PORTRAIT, CSize(2159, 2794), "*PageSize Letter", 1},
    {"A3 landscape", DMPAPER_A3, DMORIENT_LANDSCAPE, CSize(4200, 2970), "*PageSize A3", 2},
};

TEST(CalendarPrinters, PostScriptPagesHaveTheirPaperAndTheirFonts)
{
    ASSERT_TRUE(AddPaperPrinter(PAPER_PPD));
    char folder[MAX_PATH] = "";
    ::GetTempPathA(MAX_PATH, folder);
    const std::string path = std::string(folder) + "dayvane-pages.ps";
    for (const auto& row : kPapers) {
        ShownCtrl ctrl(kViews[3]);
        ctrl.Fill(200, 0);
        CPrintDialog dialog(FALSE);
        ASSERT_TRUE(dialog.GetDefaults()) << row.name;
        DEVMODE* mode = static_cast<DEVMODE*>(::GlobalLock(dialog.m_pd.hDevMode));
        mode->dmPaperSize = row.paper;
        mode->dmOrientation = row.orientation;
        mode->dmCopies = row.copies;
        mode->dmFields |= DM_PAPERSIZE | DM_ORIENTATION | DM_COPIES;
        ::GlobalUnlock(dialog.m_pd.hDevMode);
        EXPECT_EQ(dialog.GetCopies(), row.copies) << row.name;
        ::DeleteDC(dialog.m_pd.hDC);
        CDC dc;
        ASSERT_TRUE(dc.Attach(dialog.CreatePrinterDC())) << row.name;
        dc.m_bPrinting = TRUE;
        CPrintInfo info;
        const CCalendarPrinter::Sheet sheet = CCalendarPrinter::SheetOf(&dc, &info);
        EXPECT_NEAR(sheet.paper.cx, row.size.cx, 8) << row.name;
        EXPECT_NEAR(sheet.paper.cy, row.size.cy, 8) << row.name;
        DOCINFO document = {};
        document.cbSize = sizeof(document);
        document.lpszDocName = "pages";
        document.lpszOutput = path.c_str();
        ASSERT_GT(dc.StartDoc(&document), 0) << row.name;
        const int pages = ctrl->GetPrinter()->Begin(&dc, &info);
        EXPECT_GE(pages, 2) << row.name;
        for (info.m_nCurPage = 1; info.m_nCurPage <= info.GetMaxPage(); ++info.m_nCurPage) {
            dc.StartPage();
            EXPECT_EQ(ctrl->DoPrint(&dc, &info), 1) << row.name;
            dc.EndPage();
        }
        EXPECT_GT(dc.EndDoc(), 0) << row.name;
        const std::string file = ReadFile(path);
        EXPECT_NE(file.find("%%Pages: " + std::to_string(pages)), std::string::npos) << row.name;
        EXPECT_NE(file.find(row.feature), std::string::npos) << row.name;
        const std::string copies = "copies=" + std::to_string(row.copies);
        EXPECT_EQ(file.find(copies) != std::string::npos, row.copies > 1) << row.name;
        EXPECT_EQ(file.find("Orientation: Landscape") != std::string::npos, row.orientation == DMORIENT_LANDSCAPE)
            << row.name;
        EXPECT_NE(file.find("/FontType 42"), std::string::npos) << row.name << ": no font is embedded";
        ::DeleteFileA(path.c_str());
    }
}

} // namespace
