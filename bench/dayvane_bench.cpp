// How fast the views are: adding, layout, paint, hit test, a step of a drag, navigation.
//
//   dayvane-bench [--cases [TEXT]] [--save FILE] [--compare FILE]
//
// A table of cases, each beside a literal rule or a raw drawing in the same run (Cases.h); with TEXT those whose names
// hold it. --compare tells which have become slower than in a file of --save, by their ratios.
//
//   dayvane-bench [--view V] [--events FILE | --generate N] [--date YYYY-MM-DD] [--size WxH]
//                 [--scale PERCENT] [--repeat N] [--no-literal]
//
// One line each: phase<TAB>median_us<TAB>min_us<TAB>max_us.
//   add             all items into an empty control, without a layout
//   layout          one layout of the window
//   paint           one paint of the whole window, off screen and copied
//   hittest         one hit test, the mean of points all over the window
//   drag-step       an item changed, one layout, one paint
//   navigate        one line of the scroll bar: dates, items and rectangles anew
//   literal-layout  the layout by the rules taken literally (not with --no-literal), which must give the same
//   rectangles raw-paint       the drawing operations of the paint in a bare loop (see RawPicture.h) bytes-per-item
//   heap bytes of a stored item besides its text (one number, three times)
#include "BenchEvents.h"
#include "BenchViews.h"
#include "Cases.h"
#include "RawPicture.h"

#include "core/DateMath.h"
#include "core/DrawingHelpers.h"

#include <afxext.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Options
{
    const bench::BenchViewEntry* view = bench::FindView("month");
    std::string events;
    int generate = 10000;
    COleDateTime date = COleDateTime(2026, 4, 15, 0, 0, 0);
    CSize size = CSize(1280, 900);
    int scale = 100; // per cent of 96 dpi
    int repeat = 20;
    bool literal = true;
};

double NowMicroseconds()
{
    static const double perMicrosecond = [] {
        LARGE_INTEGER frequency;
        ::QueryPerformanceFrequency(&frequency);
        return static_cast<double>(frequency.QuadPart) / 1e6;
    }();
    LARGE_INTEGER ticks;
    ::QueryPerformanceCounter(&ticks);
    return static_cast<double>(ticks.QuadPart) / perMicrosecond;
}

void Print(const char* phase, double median, double least, double most)
{
    std::printf("%s\t%.1f\t%.1f\t%.1f\n", phase, median, least, most);
    std::fflush(stdout);
}

// perAction: how many of what the phase stands for one action does.
void Measure(const char* phase, int repeat, const std::function<void()>& action, int perAction = 1)
{
    std::vector<double> times;
    for (int i = 0; i < repeat; ++i) {
        const double start = NowMicroseconds();
        action();
        times.push_back((NowMicroseconds() - start) / perAction);
    }
    std::sort(times.begin(), times.end());
    Print(phase, times[times.size() / 2], times.front(), times.back());
}

// Of all heaps of the process: the C runtime may have its own.
size_t HeapBytesInUse()
{
    HANDLE heaps[64];
    const DWORD count = ::GetProcessHeaps(sizeof(heaps) / sizeof(heaps[0]), heaps);
    size_t bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry = {};
        while (::HeapWalk(heaps[i], &entry)) {
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) {
                bytes += entry.cbData + entry.cbOverhead;
            }
        }
    }
    return bytes;
}

struct SheetSize // hundredths of a millimetre: A4, landscape
{
    int width = 29700;
    int height = 21000;
    int hundredthsPerInch = 2540;
};

class Run
{
public:
    explicit Run(const Options& options) : m_options(options), m_view(options.view->make()), m_ctrl(m_view->Control())
    {
    }

    bool Start()
    {
        const CRect area(CPoint(0, 0), m_options.size);
        if (!m_parent.CreateEx(0, _T("STATIC"), _T(""), WS_POPUP, area, nullptr, 0) ||
            !m_ctrl.Create(WS_CHILD | WS_VISIBLE, area, &m_parent, 1)) {
            return false;
        }
        CClientDC window(&m_ctrl);
        m_target.CreateCompatibleDC(&window);
        m_bitmap.CreateCompatibleBitmap(&window, area.Width(), area.Height());
        m_ctrl.SetScale(m_options.scale * dayvane::kBaseDpi / 100);
        m_ctrl.SetTextCodePage(dayvane::kOwnCodePage); // of the items' texts
        m_ctrl.SetCurrentDate(m_options.date);
        COleDateTime first;
        COleDateTime last;
        m_ctrl.GetViewRange(first, last);
        m_items = m_options.events.empty() ? bench::GenerateEvents(m_options.generate, first, m_options.view->spread)
                                           : bench::ReadEvents(m_options.events);
        return true;
    }

    void AllPhases()
    {
        const dayvane::SelectGdi selectBitmap(&m_target, &m_bitmap);
        MeasureBytes();
        Measure("add", m_options.repeat, [this] {
            m_ctrl.DeleteAllItems();
            AddItems();
        });
        Measure("layout", m_options.repeat, [this] { Layout(); });
        Measure("paint", m_options.repeat, [this] { Paint(); });
        MeasureUtf8Paint();
        MeasureHitTest();
        MeasureDrag();
        MeasureNavigation();
        Measure("print", m_options.repeat, [this] { PrintPages(); });
        MeasureRawPaint();
        if (m_options.literal) {
            MeasureLiteral();
        }
        m_parent.DestroyWindow();
    }

private:
    void AddItems()
    {
        for (tagCC_ITEM& item : m_items) {
            m_ctrl.AddItem(&item, FALSE, FALSE);
        }
    }

    void Layout() { m_ctrl.Layout(m_options.size.cx, m_options.size.cy); }

    void Paint()
    {
        CMemDC memory(&m_target);
        m_view->Paint(&memory);
    }

    // All pages on A4 paper into metafiles: reading the items, laying out, drawing.
    void PrintPages()
    {
        constexpr SheetSize sheet;
        dayvane::CalendarPrinting* printer = m_ctrl.GetPrinter();
        CPrintInfo info;
        const RECT frame = {0, 0, sheet.width, sheet.height};
        for (info.m_nCurPage = 1;; ++info.m_nCurPage) {
            CDC dc;
            dc.Attach(::CreateEnhMetaFile(nullptr, nullptr, &frame, nullptr));
            const int dpi = dc.GetDeviceCaps(LOGPIXELSX);
            info.m_rectDraw.SetRect(0, 0, ::MulDiv(sheet.width, dpi, sheet.hundredthsPerInch),
                                    ::MulDiv(sheet.height, dpi, sheet.hundredthsPerInch));
            if (info.m_nCurPage == 1) {
                printer->Begin(&dc, &info);
            }
            const int isDrawn = m_ctrl.DoPrint(&dc, &info);
            ::DeleteEnhMetaFile(::CloseEnhMetaFile(dc.Detach()));
            if (!isDrawn) {
                break;
            }
        }
        printer->End();
    }

    void MeasureBytes()
    {
        // The texts are shared with the items added, so the records alone count, and their own blocks of text are what
        // a text takes besides its characters.
        size_t characters = 0;
        const size_t before = HeapBytesInUse();
        for (const tagCC_ITEM& item : m_items) {
            tagCC_ITEM own = item;
            own.strText = CString(item.strText.GetString(), item.strText.GetLength());
            characters += own.strText.GetLength();
            m_ctrl.AddItem(&own, FALSE, FALSE);
        }
        const size_t after = HeapBytesInUse();
        const double count = std::max<double>(1, static_cast<double>(m_items.size()));
        const double bytes = (static_cast<double>(after) - static_cast<double>(before) - characters) / count;
        Print("bytes-per-item", bytes, bytes, bytes);
    }

    // The same picture from texts in UTF-8.
    void MeasureUtf8Paint()
    {
        const auto convert = [this](unsigned from, unsigned to) {
            for (int i = 0; i < m_ctrl.GetItemCount(); ++i) {
                tagCC_ITEM item;
                m_ctrl.GetItem(i, item);
                item.strText = dayvane::EncodeText(dayvane::DecodeText(item.strText, from), to).c_str();
                m_ctrl.SetItem(i, &item, FALSE, FALSE);
            }
            m_ctrl.SetTextCodePage(to);
            Layout();
        };
        convert(dayvane::kOwnCodePage, dayvane::kUtf8CodePage);
        Measure("paint-utf8", m_options.repeat, [this] { Paint(); });
        convert(dayvane::kUtf8CodePage, dayvane::kOwnCodePage);
    }

    void MeasureHitTest()
    {
        constexpr int kColumns = 32;
        constexpr int kRows = 32;
        Measure(
            "hittest", m_options.repeat,
            [this] {
                for (int i = 0; i < kColumns * kRows; ++i) {
                    tagCCHITTESTINFO info;
                    info.pt.x = (2 * (i % kColumns) + 1) * m_options.size.cx / (2 * kColumns);
                    info.pt.y = (2 * (i / kColumns) + 1) * m_options.size.cy / (2 * kRows);
                    m_ctrl.HitTest(info);
                }
            },
            kColumns * kRows);
    }

    void MeasureDrag()
    {
        if (m_items.empty()) {
            return;
        }
        const int dragged = static_cast<int>(m_items.size()) / 2;
        int direction = 1;
        Measure("drag-step", m_options.repeat, [&] {
            tagCC_ITEM item;
            m_ctrl.GetItem(dragged, item);
            item.dtStart = dayvane::AddDays(item.dtStart, direction);
            item.dtEnd = dayvane::AddDays(item.dtEnd, direction);
            direction = -direction;
            m_ctrl.SetItem(dragged, &item, FALSE, FALSE);
            Layout();
            Paint();
        });
    }

    void MeasureNavigation()
    {
        int code = SB_LINEDOWN;
        Measure("navigate", 2 * m_options.repeat, [&] {
            m_ctrl.SendMessage(WM_VSCROLL, code);
            code = code == SB_LINEDOWN ? SB_LINEUP : SB_LINEDOWN;
        });
        Layout();
    }

    void MeasureRawPaint()
    {
        bench::RawPicture picture(&m_target, m_options.size, [this](CDC* pDC) { m_view->Paint(pDC); });
        Paint();
        const std::vector<char> painted = Pixels();
        {
            CMemDC memory(&m_target);
            picture.Draw(&memory);
        }
        std::fprintf(stderr, "raw-paint: %d operations, %d of %d bytes of the picture differ\n",
                     picture.OperationCount(), Differences(painted, Pixels()), static_cast<int>(painted.size()));
        Measure("raw-paint", m_options.repeat, [&] {
            CMemDC memory(&m_target);
            picture.Draw(&memory);
        });
    }

    std::vector<char> Pixels()
    {
        BITMAP info = {};
        m_bitmap.GetObject(sizeof(info), &info);
        std::vector<char> pixels(static_cast<size_t>(info.bmWidthBytes) * info.bmHeight);
        ::GetBitmapBits(static_cast<HBITMAP>(m_bitmap.GetSafeHandle()), static_cast<LONG>(pixels.size()),
                        pixels.data());
        return pixels;
    }

    static int Differences(const std::vector<char>& a, const std::vector<char>& b)
    {
        int count = 0;
        for (size_t i = 0; i < a.size(); ++i) {
            count += a[i] != b[i];
        }
        return count;
    }

    void MeasureLiteral()
    {
        Layout();
        std::vector<CRect> rects;
        for (int i = 0; i < static_cast<int>(m_ctrl.GetScreenItems().GetSize()); ++i) {
            rects.push_back(m_ctrl.GetScreenItems()[i].rcItem);
        }
        constexpr int kRounds = 3; // it is slow
        Measure("literal-layout", kRounds, [this] { m_view->LayOutLiterally(m_options.size.cx, m_options.size.cy); });
        if (static_cast<size_t>(m_ctrl.GetScreenItems().GetSize()) != rects.size()) {
            throw std::runtime_error("the literal layout has another number of screen items");
        }
        for (int i = 0; i < static_cast<int>(rects.size()); ++i) {
            if (m_ctrl.GetScreenItems()[i].rcItem != rects[i]) {
                throw std::runtime_error("the literal layout differs at screen item " + std::to_string(i));
            }
        }
    }

    const Options& m_options;
    CWnd m_parent;
    std::unique_ptr<bench::BenchView> m_view;
    CCalendarCtrl& m_ctrl;
    std::vector<tagCC_ITEM> m_items;
    CDC m_target;
    CBitmap m_bitmap;
};

int Usage()
{
    std::fprintf(stderr,
                 "usage: dayvane-bench [--cases [TEXT]] [--save FILE] [--compare FILE]\n"
                 "       dayvane-bench [--view V] [--events FILE | --generate N] [--date YYYY-MM-DD] [--size WxH] "
                 "[--scale PERCENT] [--repeat N] [--no-literal]\nviews:");
    bench::PrintViewNames();
    std::fprintf(stderr, "\n");
    return 2;
}

bool ParseOption(const std::string& name, const char* value, Options& options)
{
    int width = 0;
    int height = 0;
    if (name == "--view") {
        return (options.view = bench::FindView(value)) != nullptr;
    }
    if (name == "--events") {
        return !(options.events = value).empty();
    }
    if (name == "--generate") {
        return (options.generate = std::atoi(value)) > 0;
    }
    if (name == "--date") {
        return bench::ParseDateTime(value, options.date);
    }
    if (name == "--repeat") {
        return (options.repeat = std::atoi(value)) > 0;
    }
    if (name == "--scale") {
        return (options.scale = std::atoi(value)) > 0;
    }
    if (name == "--size" && std::sscanf(value, "%dx%d", &width, &height) == 2) {
        options.size = CSize(width, height);
        return width > 0 && height > 0;
    }
    return false;
}

// The table of cases. Slower than in the file that is compared with: 1.
int RunCaseTable(const std::vector<std::string>& arguments)
{
    std::string only;
    std::string save;
    std::string compare;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const bool hasValue = i + 1 < arguments.size();
        if (arguments[i] == "--cases") {
            only = hasValue && arguments[i + 1][0] != '-' ? arguments[++i] : "";
        } else if (hasValue && (arguments[i] == "--save" || arguments[i] == "--compare")) {
            (arguments[i] == "--save" ? save : compare) = arguments[i + 1];
            ++i;
        } else {
            return Usage();
        }
    }
    // Before some minutes of measuring.
    bench::SavedRatios before;
    if (!compare.empty() && !bench::LoadCases(compare, before)) {
        std::fprintf(stderr, "dayvane-bench: %s cannot be read, or is no saved run\n", compare.c_str());
        return 1;
    }
    const std::vector<bench::CaseResult> results = bench::RunCases(only);
    if (!save.empty() && !bench::SaveCases(results, save)) {
        std::fprintf(stderr, "dayvane-bench: %s cannot be written\n", save.c_str());
        return 1;
    }
    return !compare.empty() && bench::CompareCases(results, before) > 0 ? 1 : 0;
}

bool IsCaseArgument(const char* argument)
{
    return !std::strcmp(argument, "--cases") || !std::strcmp(argument, "--save") || !std::strcmp(argument, "--compare");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1 || IsCaseArgument(argv[1])) {
        return RunCaseTable(std::vector<std::string>(argv + 1, argv + argc));
    }
    Options options;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--no-literal") == 0) {
            options.literal = false;
        } else if (i + 1 < argc && ParseOption(argv[i], argv[i + 1], options)) {
            ++i;
        } else {
            return Usage();
        }
    }
    try {
        Run run(options);
        if (!run.Start()) {
            std::fprintf(stderr, "dayvane-bench: the window cannot be created\n");
            return 1;
        }
        run.AllPhases();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "dayvane-bench: %s\n", error.what());
        return 1;
    }
    return 0;
}
