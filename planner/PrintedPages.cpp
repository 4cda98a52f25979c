#include "planner/PrintedPages.h"

#include "planner/PngFile.h"

#include <afxdlgs.h>
#include <afxext.h>
#include <winspool.h>

#include <fstream>
#include <iterator>

namespace planner {
namespace {

const PaperRow kPapers[] = {{"A3", DMPAPER_A3, CSize(2970, 4200)},
                            {"A4", DMPAPER_A4, CSize(2100, 2970)},
                            {"A5", DMPAPER_A5, CSize(1480, 2100)},
                            {"B5", DMPAPER_B5, CSize(1820, 2570)},
                            {"Letter", DMPAPER_LETTER, CSize(2159, 2794)}};
const CSize kA4(2100, 2970);
constexpr int kTenthsPerInch = 254;
constexpr int kPictureDpi = 150;

// Prints all pages on a context whose document is to be made; 0 when the printer refuses.
int PrintAll(CDC& dc, CCalendarCtrl& ctrl, const char* file)
{
    dayvane::CalendarPrinting* printer = ctrl.GetPrinter();
    DOCINFO document = {};
    document.cbSize = sizeof(document);
    document.lpszDocName = "Planner";
    document.lpszOutput = file;
    if (!printer || dc.StartDoc(&document) <= 0) {
        return 0;
    }
    CPrintInfo info;
    info.m_rectDraw.SetRect(0, 0, dc.GetDeviceCaps(HORZRES), dc.GetDeviceCaps(VERTRES));
    const int pages = printer->Begin(&dc, &info);
    bool isFine = pages > 0;
    for (info.m_nCurPage = 1; isFine && info.m_nCurPage <= info.GetMaxPage(); ++info.m_nCurPage) {
        isFine = dc.StartPage() > 0 && ctrl.DoPrint(&dc, &info) && dc.EndPage() > 0;
    }
    printer->End();
    if (!isFine) {
        dc.AbortDoc();
        return 0;
    }
    return dc.EndDoc() > 0 ? pages : 0;
}

} // namespace

int PaperCount()
{
    return static_cast<int>(std::size(kPapers));
}

const PaperRow& PaperAt(int row)
{
    return kPapers[row];
}

bool HasPrinter()
{
    DWORD length = 0;
    ::GetDefaultPrinter(nullptr, &length);
    return length > 0;
}

bool IsLandscape(const PageSettings& settings, dayvane::PageKind kind)
{
    return settings.orientation == PageSettings::SuitsPage ? dayvane::SuitsLandscape(kind)
                                                           : settings.orientation == PageSettings::Landscape;
}

CSize PaperSizeOf(const PageSettings& settings, dayvane::PageKind kind)
{
    CSize size = kA4;
    for (const PaperRow& row : kPapers) {
        if (row.paper == settings.paper) {
            size = row.size;
        }
    }
    return IsLandscape(settings, kind) ? CSize(size.cy, size.cx) : size;
}

// ---- The control's printer

namespace {

std::unique_ptr<CCalendarPrinter> PrinterFor(CCalendarCtrl& ctrl, const PageSettings& settings)
{
    std::unique_ptr<dayvane::CalendarPrinting> made =
        settings.asList ? std::make_unique<CListPrinter>(&ctrl) : dayvane::MakeCalendarPrinting(ctrl);
    std::unique_ptr<CCalendarPrinter> printer(dynamic_cast<CCalendarPrinter*>(made.get()));
    if (printer) {
        made.release();
        dayvane::PrintOptions options = settings.options;
        options.footerText = dayvane::DecodeText(settings.footerText, dayvane::kSystemCodePage);
        printer->SetOptions(options);
    }
    return printer;
}

} // namespace

void SetUpPrinter(CCalendarCtrl& ctrl, const PageSettings& settings, const std::function<CString(int)>& placeOf)
{
    std::unique_ptr<CCalendarPrinter> printer = PrinterFor(ctrl, settings);
    if (printer) {
        printer->SetPlaces(placeOf);
    }
    ctrl.SetPrinter(std::move(printer));
}

PrinterScope::PrinterScope(CCalendarCtrl& ctrl, const PageSettings& settings) : m_ctrl(ctrl)
{
    std::unique_ptr<CCalendarPrinter> tried = PrinterFor(ctrl, settings);
    CCalendarPrinter* own = CCalendarPrinter::Of(ctrl);
    if (tried && own) {
        tried->SetPlaces(own->GetPlaces());
        tried->SetTitle(own->GetTitleText());
    }
    m_own = ctrl.TakePrinter();
    ctrl.SetPrinter(std::move(tried));
}

PrinterScope::~PrinterScope()
{
    m_ctrl.SetPrinter(std::move(m_own));
}

bool TakePaper(PageSettings& settings, const std::string& name)
{
    const std::string::size_type dash = name.find('-');
    const std::string paper = name.substr(0, dash);
    const std::string orientation = dash == std::string::npos ? "" : name.substr(dash + 1);
    bool isKnown = paper.empty();
    for (const PaperRow& row : kPapers) {
        if (paper == row.name) {
            settings.paper = row.paper;
            isKnown = true;
        }
    }
    if (orientation == "portrait" || orientation == "landscape") {
        settings.orientation = orientation == "portrait" ? PageSettings::Portrait : PageSettings::Landscape;
    } else {
        isKnown = isKnown && orientation.empty();
    }
    return isKnown;
}

void SetPaper(DEVMODE& mode, const PageSettings& settings, dayvane::PageKind kind)
{
    mode.dmOrientation = IsLandscape(settings, kind) ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    mode.dmFields |= DM_ORIENTATION;
    if (settings.paper != 0) {
        mode.dmPaperSize = settings.paper;
        mode.dmFields |= DM_PAPERSIZE;
    }
}

int PrintToFile(CCalendarCtrl& ctrl, const PageSettings& settings, const char* file, CString& problem)
{
    CCalendarPrinter* printer = CCalendarPrinter::Of(ctrl);
    if (!printer) {
        problem = "This view cannot be printed.";
        return 0;
    }
    CPrintDialog dialog(FALSE);
    if (!HasPrinter() || !dialog.GetDefaults() || !dialog.m_pd.hDevMode) {
        problem = "There is no printer.";
        return 0;
    }
    SetPaper(*static_cast<DEVMODE*>(::GlobalLock(dialog.m_pd.hDevMode)), settings, printer->GetRange().kind);
    ::GlobalUnlock(dialog.m_pd.hDevMode);
    if (dialog.m_pd.hDC) {
        ::DeleteDC(dialog.m_pd.hDC);
    }
    CDC dc;
    if (!dc.Attach(dialog.CreatePrinterDC())) {
        problem = "The printer does not answer.";
        return 0;
    }
    dc.m_bPrinting = TRUE;
    const int pages = PrintAll(dc, ctrl, file);
    if (pages == 0) {
        problem = "The printer refused the pages.";
    }
    return pages;
}

void SelectPaper(const PageSettings& settings, dayvane::PageKind kind)
{
    CWinApp* app = AfxGetApp();
    if (!app) {
        return;
    }
    const HANDLE memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DEVMODE));
    DEVMODE& mode = *static_cast<DEVMODE*>(::GlobalLock(memory));
    mode.dmSize = sizeof(DEVMODE);
    SetPaper(mode, settings, kind);
    ::GlobalUnlock(memory);
    app->SelectPaper(memory);
    ::GlobalFree(memory);
}

// ---- Pictures

namespace {

bool WritePng(CCalendarPrinter& printer, const dayvane::Page& page, const CString& file)
{
    dayvane::PageView view;
    view.dpiX = view.dpiY = kPictureDpi;
    Picture picture;
    picture.dotsPerInch = kPictureDpi;
    picture.width = ::MulDiv(page.size.cx, kPictureDpi, kTenthsPerInch);
    picture.height = ::MulDiv(page.size.cy, kPictureDpi, kTenthsPerInch);
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = picture.width;
    info.bmiHeader.biHeight = -picture.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = ::CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) {
        return false;
    }
    const HGDIOBJ old = ::SelectObject(dc, bitmap);
    dc.PatBlt(0, 0, picture.width, picture.height, WHITENESS);
    printer.DrawPage(&dc, page, view);
    ::GdiFlush();
    const auto* pixels = static_cast<const RGBQUAD*>(bits);
    const std::size_t count = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.rgb.reserve(3 * count);
    for (std::size_t i = 0; i < count; ++i) {
        picture.rgb.push_back(pixels[i].rgbRed);
        picture.rgb.push_back(pixels[i].rgbGreen);
        picture.rgb.push_back(pixels[i].rgbBlue);
    }
    ::SelectObject(dc, old);
    ::DeleteObject(bitmap);
    std::ofstream out(file, std::ios::binary);
    const std::string bytes = PngOf(picture);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return out.good();
}

// A metafile of the sheet's size, as fine as the default printer, or else the screen.
bool WriteMetafile(CCalendarPrinter& printer, const dayvane::Page& page, const CString& file)
{
    CPrintDialog dialog(FALSE);
    HDC reference = nullptr;
    if (HasPrinter() && dialog.GetDefaults()) {
        reference = dialog.m_pd.hDC;
    }
    // The frame in hundredths of a millimetre as the device measures, which on a screen is not by its dots an inch.
    const HDC screen = ::GetDC(nullptr);
    const HDC device = reference ? reference : screen;
    const auto frameOf = [&](int units, int dpi, int size, int resolution) {
        return ::MulDiv(::MulDiv(units, ::GetDeviceCaps(device, dpi), kTenthsPerInch),
                        ::GetDeviceCaps(device, size) * 100, ::GetDeviceCaps(device, resolution));
    };
    const RECT frame = {0, 0, frameOf(page.size.cx, LOGPIXELSX, HORZSIZE, HORZRES),
                        frameOf(page.size.cy, LOGPIXELSY, VERTSIZE, VERTRES)};
    ::ReleaseDC(nullptr, screen);
    CDC dc;
    const bool isMade = dc.Attach(::CreateEnhMetaFile(reference, file, &frame, "Planner\0Calendar page\0")) != FALSE;
    if (isMade) {
        dayvane::PageView view;
        view.dpiX = dc.GetDeviceCaps(LOGPIXELSX);
        view.dpiY = dc.GetDeviceCaps(LOGPIXELSY);
        printer.DrawPage(&dc, page, view);
        ::DeleteEnhMetaFile(::CloseEnhMetaFile(dc.Detach()));
    }
    if (reference) {
        ::DeleteDC(reference);
    }
    return isMade;
}

} // namespace

int ExportPages(CCalendarCtrl& ctrl, const PageSettings& settings, const CString& file)
{
    CCalendarPrinter* printer = CCalendarPrinter::Of(ctrl);
    if (!printer) {
        return 0;
    }
    const std::vector<dayvane::Page> pages = printer->MakePages(PaperSizeOf(settings, printer->GetRange().kind));
    const int dot = file.ReverseFind('.');
    const CString name = dot >= 0 ? file.Left(dot) : file;
    const CString extension = dot >= 0 ? file.Mid(dot) : CString(".png");
    int number = 0;
    for (const dayvane::Page& page : pages) {
        CString path = file;
        ++number;
        if (pages.size() > 1) {
            path.Format("%s-%d%s", name.GetString(), number, extension.GetString());
        }
        const bool isWritten =
            extension.CompareNoCase(".emf") == 0 ? WriteMetafile(*printer, page, path) : WritePng(*printer, page, path);
        if (!isWritten) {
            return 0;
        }
    }
    return number;
}

} // namespace planner
