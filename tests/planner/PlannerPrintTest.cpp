// Printing from the planner's window: page setup, preview and pictures, also where no printer is installed.
#include "PlannerTesting.h"

#include "planner/IniText.h"
#include "planner/PagesDialog.h"
#include "planner/Words.h"

#include <afxpriv.h>

using namespace plannertesting;
using planner::PageSettings;

namespace {

// The system has no printer as long as this lives.
class NoPrinter
{
public:
    NoPrinter()
    {
        ::GetProfileString("windows", "device", "", m_before, sizeof(m_before));
        ::WriteProfileString("windows", "device", "");
    }
    ~NoPrinter() { ::WriteProfileString("windows", "device", m_before); }

private:
    char m_before[256] = "";
};

class PlannerPrint : public PlannerWindow
{
protected:
    void SetUp() override
    {
        PlannerWindow::SetUp();
        planner::SetAnswerer([this](const std::string& question, UINT) {
            m_questions.push_back(question);
            return IDOK;
        });
    }
    CPreviewView* Preview() { return DYNAMIC_DOWNCAST(CPreviewView, m_frame->GetDlgItem(AFX_IDW_PANE_FIRST)); }

    NoPrinter m_noPrinter;
    std::vector<std::string> m_questions;
};

std::string Beginning(const std::string& path, std::size_t length)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes(length, '\0');
    file.read(&bytes[0], static_cast<std::streamsize>(length));
    return bytes;
}

TEST_F(PlannerPrint, WithoutAPrinterThereIsPreviewAndExport)
{
    m_frame->SendMessage(WM_COMMAND, ID_FILE_PRINT);
    ASSERT_EQ(m_questions.size(), 1u);
    EXPECT_EQ(m_questions[0].find("No printer is installed."), 0u) << m_questions[0];
    for (const char* view : {"month", "day", "week", "diary", "year", "agenda"}) {
        m_frame->ShowView(planner::FindView(view));
        PumpMessages();
        m_frame->SendMessage(WM_COMMAND, ID_FILE_PRINT_PREVIEW);
        ASSERT_TRUE(Preview()) << view;
        EXPECT_EQ(Preview()->GetShownPages(), 1) << view;
        m_frame->Idle(); // still has its calendar
        Preview()->OnPreviewClose();
    }
    EXPECT_EQ(m_questions.size(), 1u);
    m_frame->ShowView(planner::FindView("month"));
    PumpMessages();
    for (const char* extension : {".png", ".emf"}) {
        const std::string path = m_path + extension;
        PageSettings settings;
        settings.orientation = PageSettings::Landscape;
        ASSERT_EQ(planner::ExportPages(Ctrl(), settings, path.c_str()), 1) << extension;
        if (path.back() == 'g') {
            EXPECT_EQ(Beginning(path, 4), "\x89PNG");
        } else {
            const HENHMETAFILE file = ::GetEnhMetaFile(path.c_str());
            ENHMETAHEADER header = {};
            ::GetEnhMetaFileHeader(file, sizeof(header), &header);
            EXPECT_GT(header.nRecords, 50u);
            EXPECT_NEAR(header.rclFrame.right * 100 / header.rclFrame.bottom, 141, 3) << "A4, landscape";
            ::DeleteEnhMetaFile(file);
        }
        std::remove(path.c_str());
    }
    EXPECT_EQ(planner::ExportPages(Ctrl(), PageSettings(), "Z:\\no\\such\\folder\\page.png"), 0);
}

class PageSetup : public CPagesDialog
{
public:
    using CPagesDialog::CPagesDialog;
    // Of the picture of the page: another number for another one.
    unsigned Ink()
    {
        UpdateWindow();
        CRect room;
        GetDlgItem(IDC_PICTURE)->GetWindowRect(&room);
        ScreenToClient(&room);
        CClientDC dc(this);
        unsigned ink = 0;
        for (int y = room.top; y < room.bottom; y += 2) {
            for (int x = room.left; x < room.right; x += 5) {
                ink = ink * 31 + (dc.GetPixel(x, y) & 0xFF);
            }
        }
        return ink;
    }
    void Check(int id, bool isChecked)
    {
        CheckDlgButton(id, isChecked ? BST_CHECKED : BST_UNCHECKED);
        SendMessage(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED));
    }
    void Choose(int id, int row)
    {
        SendDlgItemMessage(id, CB_SETCURSEL, static_cast<WPARAM>(row));
        SendMessage(WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE));
    }
};

TEST_F(PlannerPrint, PageSetupShowsWhatItWillPrint)
{
    planner::SetLanguage(planner::Language::Japanese);
    PageSettings settings;
    PageSetup setup(Ctrl(), settings, m_frame);
    Ctrl().SetPrinter(nullptr);
    ASSERT_TRUE(setup.Create(IDD_PAGES, m_frame));
    setup.ShowWindow(SW_SHOW);
    EXPECT_EQ(planner::WindowUtf8(setup), u8"ページ設定");
    char portrait[16] = "";
    setup.SendDlgItemMessage(IDC_ORIENTATION, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(portrait));
    EXPECT_EQ(planner::Utf8OfSystem(portrait), ::GetACP() == 932 ? u8"縦" : "?");
    unsigned ink = setup.Ink();
    const auto changes = [&](const char* what) {
        const unsigned before = ink;
        ink = setup.Ink();
        EXPECT_NE(ink, before) << what << ": the picture does not follow";
    };
    setup.Choose(IDC_ORIENTATION, PageSettings::Portrait);
    changes("orientation");
    setup.Choose(IDC_PAPER, 1);
    changes("paper");
    setup.Choose(IDC_PAGE_LANGUAGE, static_cast<int>(dayvane::PrintLanguage::Japanese));
    changes("language");
    setup.Check(IDC_SHOW_TITLE, false);
    changes("title");
    setup.SetDlgItemInt(IDC_MARGIN_LEFT, 40);
    changes("margin");
    setup.Check(IDC_AS_LIST, true);
    changes("list");
    setup.Check(IDC_EMPTY_DAYS, true);
    changes("empty days");
    setup.Check(IDC_WIDEN_HOURS, false);
    EXPECT_EQ(settings.orientation, PageSettings::SuitsPage) << "nothing is chosen before OK";
    setup.SendMessage(WM_COMMAND, IDOK);
    EXPECT_EQ(settings.orientation, PageSettings::Portrait);
    EXPECT_EQ(settings.paper, planner::PaperAt(0).paper);
    EXPECT_EQ(settings.options.language, dayvane::PrintLanguage::Japanese);
    EXPECT_EQ(settings.options.marginLeft, 40);
    EXPECT_TRUE(settings.asList && settings.options.emptyDays);
    EXPECT_FALSE(settings.options.showTitle || settings.options.widenHours);
    setup.DestroyWindow();
    settings.footerText = "Sales";
    planner::IniText ini;
    planner::KeepPages(ini, settings);
    PageSettings next;
    planner::TakePages(planner::IniText(ini.Text()), next);
    EXPECT_EQ(next.orientation, PageSettings::Portrait) << "after the next start";
    EXPECT_EQ(next.paper, settings.paper);
    EXPECT_EQ(next.options.marginLeft, 40);
    EXPECT_EQ(next.footerText, "Sales");
    EXPECT_TRUE(next.asList && next.options.emptyDays && !next.options.showTitle);
    planner::SetLanguage(planner::Language::English);
}

} // namespace
