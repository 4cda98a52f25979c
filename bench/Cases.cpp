#include "Cases.h"

#include "BenchViews.h"
#include "RawPicture.h"

#include "access/CalendarWindowAccess.h"
#include "core/DateMath.h"
#include "core/DrawingHelpers.h"
#include "core/ItemStore.h"
#include "core/TextCodec.h"
#include "core/ViewScale.h"
#include "printing/CalendarPrinter.h"
#include "views/daygrid/RowPieces.h"

#include <afxext.h>
#include <oleacc.h>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace bench {
namespace {

const CSize kScreen(1280, 960);
const CSize k4K(3840, 2160);
const COleDateTime kDate(2026, 4, 15, 0, 0, 0);
constexpr int kRounds = 8; // neighbours on a shared machine slow some of them by half
constexpr double kRoundMilliseconds = 200;
constexpr double kWorse = 1.15;
constexpr double kQuarter = 0.25;

double CpuMilliseconds()
{
    FILETIME created, ended, kernel, user;
    ::GetProcessTimes(::GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime;
    };
    return (ticks(kernel) + ticks(user)) / 10000.0;
}

// The processor time of one call, of the best of a few rounds of calls: what other programs take does not count.
double CpuOf(const std::function<void()>& action, double roundMilliseconds = kRoundMilliseconds)
{
    double best = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        const double begin = CpuMilliseconds();
        double spent = 0;
        int calls = 0;
        while (spent < roundMilliseconds) {
            action();
            ++calls;
            spent = CpuMilliseconds() - begin;
        }
        best = std::min(best, spent / calls);
    }
    return best;
}

// A view in a visible window, with items around the date.
class Stage
{
public:
    Stage(const char* view, CSize size) : m_entry(FindView(view)), m_view(m_entry->make()), m_size(size)
    {
        const CRect area(CPoint(0, 0), size);
        m_parent.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, area, nullptr, 0);
        m_view->ByParts(true);
        Ctrl().Create(WS_CHILD | WS_VISIBLE, area, &m_parent, 1);
        Ctrl().SetCurrentDate(kDate);
        MSG message;
        while (::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE)) {
            ::DispatchMessage(&message);
        }
    }
    ~Stage() { m_parent.DestroyWindow(); }

    CCalendarCtrl& Ctrl() { return m_view->Control(); }

    void AddInView(int count)
    {
        COleDateTime first, last;
        Ctrl().GetViewRange(first, last);
        std::vector<tagCC_ITEM> items = GenerateEvents(count, first, m_entry->spread);
        for (tagCC_ITEM& item : items) {
            Ctrl().AddItem(&item, FALSE, FALSE);
        }
        Ctrl().Refresh();
        Ctrl().UpdateWindow();
    }

    // The item that is seen nearest to the middle.
    bool FindItem(CPoint& point)
    {
        for (int ring = 0; ring < m_size.cy / 3; ring += 3) {
            for (int side = -1; side <= 1; ++side) {
                tagCCHITTESTINFO hit;
                hit.pt = CPoint(m_size.cx / 2 + side * ring, m_size.cy / 2 + ring);
                if (Ctrl().HitTest(hit) != -1 && hit.nHitCode == CCHT_ONITEM) {
                    point = hit.pt;
                    return true;
                }
            }
        }
        return false;
    }

    // One step of a drag between two days.
    double DragStep(bool paint = true)
    {
        CPoint at;
        if (!FindItem(at)) {
            return 0;
        }
        const CPoint other(at.x + m_size.cx / 7, at.y);
        Send(WM_LBUTTONDOWN, at);
        Send(WM_MOUSEMOVE, at + CPoint(8, 0));
        bool there = false;
        const double time = CpuOf([&] {
            there = !there;
            Send(WM_MOUSEMOVE, there ? other : at);
            paint ? Ctrl().UpdateWindow() : Ctrl().ValidateRect(nullptr);
        });
        Send(WM_MOUSEMOVE, at);
        Send(WM_LBUTTONUP, at);
        return time;
    }

    double Scroll(UINT one, UINT other, bool paint = true)
    {
        bool back = false;
        return CpuOf([&] {
            back = !back;
            Ctrl().SendMessage(WM_VSCROLL, back ? other : one);
            if (paint) {
                Ctrl().UpdateWindow();
            }
        });
    }

    // The system draws the whole bar at each step of scrolling, which takes Wine longer than a whole paint takes us.
    void WithoutBar() { Ctrl().ModifyStyle(WS_VSCROLL, 0); }

    double WholePaint()
    {
        return CpuOf([&] {
            Ctrl().Invalidate(FALSE);
            Ctrl().UpdateWindow();
        });
    }

    // With nothing kept of an earlier picture: another font, though it looks the same, ends that.
    double FirstPaint()
    {
        LOGFONT font = {};
        Ctrl().GetFont(0)->GetLogFont(&font);
        return CpuOf([&] {
            Ctrl().SetTextFont(font);
            Ctrl().UpdateWindow();
        });
    }

    double WholeLayout()
    {
        m_view->ByParts(false);
        const double time = CpuOf([&] { Ctrl().Layout(m_size.cx, m_size.cy); });
        m_view->ByParts(true);
        return time;
    }

    // The drawing operations of the whole picture in a bare loop.
    double RawPaint()
    {
        CClientDC window(&Ctrl());
        CDC target;
        target.CreateCompatibleDC(&window);
        CBitmap bitmap;
        bitmap.CreateCompatibleBitmap(&window, m_size.cx, m_size.cy);
        const dayvane::SelectGdi selectBitmap(&target, &bitmap);
        RawPicture picture(&target, m_size, [this](CDC* pDC) { m_view->Paint(pDC); });
        return CpuOf([&] {
            CMemDC memory(&target);
            picture.Draw(&memory);
        });
    }

private:
    void Send(UINT message, CPoint point)
    {
        Ctrl().SendMessage(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }

    const BenchViewEntry* m_entry;
    CWnd m_parent;
    std::unique_ptr<BenchView> m_view;
    CSize m_size;
};

CaseResult DragCase(const char* name, const char* view, CSize size, int items, double goal)
{
    Stage stage(view, size);
    stage.AddInView(items);
    const double step = stage.DragStep();
    return {name, step, stage.RawPaint(), goal};
}

// `perView` items in each six weeks, over as many years as it takes.
std::vector<tagCC_ITEM> ManyItems(int count, int perView)
{
    constexpr int kMinutesOfView = 42 * 24 * 60;
    const COleDateTime first = dayvane::AddDays(kDate, -count / perView * 21);
    std::vector<tagCC_ITEM> items(count);
    for (int i = 0; i < count; ++i) {
        const double minute = static_cast<double>(i) * kMinutesOfView / perView;
        tagCC_ITEM& item = items[i];
        item.dtStart = COleDateTime(first.m_dt + minute / (24 * 60));
        item.dtEnd = dayvane::AddMinutes(item.dtStart, 60);
        item.strText = i >= 1000 ? items[i % 1000].strText : CString('a' + i % 26, 4 + i % 20);
    }
    return items;
}

constexpr int kMillion = 1000000;
constexpr double kOnce = 1; // a round of one call

std::vector<CaseResult> MillionCases()
{
    std::vector<tagCC_ITEM> items = ManyItems(kMillion, 1000);
    std::vector<CaseResult> results;
    Stage stage("month", kScreen);
    CCalendarCtrl& ctrl = stage.Ctrl();
    const double add = CpuOf(
        [&] {
            ctrl.DeleteAllItems();
            for (tagCC_ITEM& item : items) {
                ctrl.AddItem(&item, FALSE, FALSE);
            }
        },
        kOnce);
    const double copy = CpuOf([&] { std::vector<tagCC_ITEM> copied(items.begin(), items.end()); }, kOnce);
    results.push_back({"1,000,000 stored: add all", add, copy, 400});
    ctrl.Refresh();
    ctrl.UpdateWindow();
    const double raw = stage.RawPaint();
    results.push_back({"1,000,000 stored: next month with picture", stage.Scroll(SB_PAGEDOWN, SB_PAGEUP), raw, 12});

    dayvane::ItemArray all;
    dayvane::ItemArray pieces;
    all.SetSize(kMillion);
    for (int i = 0; i < kMillion; ++i) {
        dayvane::FillStored(all[i], items[i]);
    }
    items.clear();
    dayvane::DayRows rows;
    for (int row = 0; row <= 6; ++row) {
        rows.push_back(dayvane::DayNumberOf(kDate) + 7 * row);
    }
    const double looked = CpuOf([&] { dayvane::MakeRowPieces(all, rows, pieces); });
    stage.WithoutBar();
    results.push_back(
        {"1,000,000 stored: next month, without painting", stage.Scroll(SB_PAGEDOWN, SB_PAGEUP, false), looked, 2});
    return results;
}

std::vector<CaseResult> LayoutCases()
{
    Stage stage("month", kScreen);
    stage.AddInView(100000);
    const double layout = stage.DragStep(false);
    const double step = stage.DragStep();
    const double whole = stage.WholeLayout();
    dayvane::ItemArray copied;
    const double copy = CpuOf([&] { copied.Copy(stage.Ctrl().GetScreenItems()); });
    return {{"100,000 in one month: whole layout", whole, copy, 17},
            {"100,000 in one month: drag step, layout only", layout, whole, 1},
            {"100,000 in one month: drag step with picture", step, whole, 0}};
}

std::vector<CaseResult> ScrollCase(const char* name, const char* nameWithBar, const char* view, double goal)
{
    Stage stage(view, kScreen);
    stage.AddInView(1000);
    const double paint = stage.WholePaint();
    const double withBar = stage.Scroll(SB_LINEDOWN, SB_LINEUP);
    stage.WithoutBar();
    return {{name, stage.Scroll(SB_LINEDOWN, SB_LINEUP), paint, goal}, {nameWithBar, withBar, paint, 0}};
}

std::vector<CaseResult> ScrollCases()
{
    std::vector<CaseResult> results = ScrollCase("7 days, 1,000 items: scroll by one row",
                                                 "7 days: the same and the system's bar", "weekday", kQuarter);
    for (const CaseResult& week :
         ScrollCase("month, 1,000 items: scroll by one week", "month: the same and the system's bar", "month", 0)) {
        results.push_back(week);
    }
    return results;
}

// All pages, laid out and drawn.
void Print(CCalendarCtrl& ctrl)
{
    CDC dc;
    dc.Attach(::CreateEnhMetaFile(nullptr, nullptr, nullptr, nullptr));
    CPrintInfo info;
    ctrl.GetPrinter()->Begin(&dc, &info);
    for (info.m_nCurPage = 1; info.m_nCurPage <= info.GetMaxPage(); ++info.m_nCurPage) {
        ctrl.DoPrint(&dc, &info);
    }
    ctrl.GetPrinter()->End();
    ::DeleteEnhMetaFile(::CloseEnhMetaFile(dc.Detach()));
}

std::vector<CaseResult> PrintCases()
{
    Stage stage("month", kScreen);
    stage.AddInView(1000);
    const double printed = CpuOf([&] { Print(stage.Ctrl()); });
    return {{"month, 1,000 items: all pages beside a first paint", printed, stage.FirstPaint(), 10}};
}

// The same picture with everything twice as large: four times the pixels.
CaseResult ScaleCase(const char* name, const char* view)
{
    constexpr int kTwice = 2;
    constexpr double kPixels = kTwice * kTwice;
    const CSize size(1280, 900);
    const auto paint = [&](int scale) {
        Stage stage(view, CSize(size.cx * scale, size.cy * scale));
        stage.Ctrl().SetScale(scale * dayvane::kBaseDpi);
        stage.AddInView(1000);
        return stage.WholePaint();
    };
    const double once = paint(1);
    return {name, paint(kTwice), once, kPixels};
}

std::vector<CaseResult> ScaleCases()
{
    return {ScaleCase("month at 200 %: paint", "month"), ScaleCase("7 days at 200 %: paint", "weekday"),
            ScaleCase("desk diary at 200 %: paint", "week")};
}

// The same texts in the code page of the system and in UTF-8.
std::vector<CaseResult> Utf8Cases()
{
    Stage stage("month", kScreen);
    stage.AddInView(1000);
    CCalendarCtrl& ctrl = stage.Ctrl();
    const double own = stage.WholePaint();
    for (int i = 0; i < ctrl.GetItemCount(); ++i) {
        tagCC_ITEM item;
        ctrl.GetItem(i, item);
        item.strText =
            dayvane::EncodeText(dayvane::DecodeText(item.strText, dayvane::kOwnCodePage), dayvane::kUtf8CodePage)
                .c_str();
        ctrl.SetItem(i, &item, FALSE, FALSE);
    }
    ctrl.SetTextCodePage(dayvane::kUtf8CodePage);
    ctrl.Refresh();
    return {{"month, 1,000 items: paint with UTF-8 texts", stage.WholePaint(), own, 1.1}};
}

// What a program that reads aloud waits for when it asks a window for the first time: its first part, by name.
std::vector<CaseResult> ReaderCases()
{
    Stage stage("month", kScreen);
    stage.AddInView(10000);
    CCalendarCtrl& ctrl = stage.Ctrl();
    VARIANT first = {};
    first.vt = VT_I4;
    first.lVal = 1;
    const double asked = CpuOf([&] {
        const auto access = std::make_shared<dayvane::CalendarWindowAccess>(ctrl);
        void* root = nullptr;
        ::ObjectFromLresult(access->GetObject(0, OBJID_CLIENT), __uuidof(IAccessible), 0, &root);
        IAccessible* object = static_cast<IAccessible*>(root);
        IDispatch* child = nullptr;
        BSTR name = nullptr;
        object->get_accChild(first, &child);
        object->get_accName(first, &name);
        ::SysFreeString(name);
        child->Release();
        object->Release();
        access->Disconnect();
    });
    return {{"month, 10,000 items: a reader's first part", asked, stage.WholeLayout(), 5}};
}

struct CaseRow
{
    const char* name;
    std::function<std::vector<CaseResult>()> run;
};

std::vector<CaseRow> Rows()
{
    const auto drag = [](const char* name, const char* view, CSize size, int items, double goal) {
        return CaseRow{name, [=] { return std::vector<CaseResult>{DragCase(name, view, size, items, goal)}; }};
    };
    return {drag("month, 10,000 items: drag step", "month", kScreen, 10000, 2),
            drag("7 days, 5,000 timed items: drag step", "weekday", kScreen, 5000, 4),
            drag("month at 3840x2160, 10,000 items: drag step", "month", k4K, 10000, 4),
            {"100,000 in one month", LayoutCases},
            {"scroll by one row or week", ScrollCases},
            {"month, 1,000 items: printed", PrintCases},
            {"paint at 200 %", ScaleCases},
            {"paint with UTF-8 texts", Utf8Cases},
            {"month, 10,000 items: a reader's first part", ReaderCases},
            {"1,000,000 stored", MillionCases}};
}

} // namespace

std::vector<CaseResult> RunCases(const std::string& only)
{
    std::printf("%-50s %10s %10s %7s %7s\n", "case (processor time, ms)", "now", "beside", "ratio", "goal");
    std::vector<CaseResult> results;
    for (const CaseRow& row : Rows()) {
        if (std::string(row.name).find(only) == std::string::npos) {
            continue;
        }
        for (const CaseResult& result : row.run()) {
            std::printf("%-50s %10.2f %10.2f %7.2f ", result.name.c_str(), result.milliseconds, result.reference,
                        result.Ratio());
            result.goal > 0 ? std::printf("%7g\n", result.goal) : std::printf("%7s\n", "");
            std::fflush(stdout);
            results.push_back(result);
        }
    }
    return results;
}

bool SaveCases(const std::vector<CaseResult>& results, const std::string& file)
{
    FILE* out = std::fopen(file.c_str(), "w");
    if (!out) {
        return false;
    }
    for (const CaseResult& result : results) {
        std::fprintf(out, "%s\t%.3f\t%.4f\n", result.name.c_str(), result.milliseconds, result.Ratio());
    }
    return std::fclose(out) == 0;
}

bool LoadCases(const std::string& file, SavedRatios& ratios)
{
    FILE* in = std::fopen(file.c_str(), "r");
    if (!in) {
        return false;
    }
    char name[128];
    double milliseconds = 0;
    double ratio = 0;
    int fields = 0;
    while ((fields = std::fscanf(in, " %127[^\t]\t%lf\t%lf", name, &milliseconds, &ratio)) == 3) {
        ratios[name] = ratio;
    }
    std::fclose(in);
    return fields == EOF && !ratios.empty();
}

int CompareCases(const std::vector<CaseResult>& results, const SavedRatios& before)
{
    int worse = 0;
    for (const CaseResult& result : results) {
        const auto found = before.find(result.name);
        if (found == before.end()) {
            std::printf("not compared: %s\n", result.name.c_str());
        } else if (result.Ratio() > kWorse * found->second) {
            std::printf("slower: %s: ratio %.2f, was %.2f\n", result.name.c_str(), result.Ratio(), found->second);
            ++worse;
        }
    }
    return worse;
}

} // namespace bench
