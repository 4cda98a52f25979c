// Controls show a theme in what they paint and in their edit box, go back to their own colours, and follow the system.
#include "PlainCalendar.h"
#include "core/SystemEras.h"
#include "core/SystemTheme.h"
#include "core/ThemeColors.h"
#include "support/Input.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

using namespace coretest;
using namespace testsupport;

namespace {

dayvane::SystemTheme g_system = dayvane::SystemTheme::Light;

BOOL CALLBACK SendTo(HWND hWnd, LPARAM lParam)
{
    const MSG& sent = *reinterpret_cast<const MSG*>(lParam);
    ::SendMessage(hWnd, sent.message, sent.wParam, sent.lParam);
    return TRUE;
}

// The system's answers, for the life of the scope.
class SystemSays
{
public:
    SystemSays()
    {
        g_system = dayvane::SystemTheme::Light;
        dayvane::SetSystemThemeQuery([] { return g_system; });
    }
    ~SystemSays() { dayvane::SetSystemThemeQuery(nullptr); }

    // The message goes to all top-level windows, as the system's does.
    void Now(dayvane::SystemTheme theme, UINT message = WM_SETTINGCHANGE, const char* setting = "ImmersiveColorSet")
    {
        g_system = theme;
        const MSG sent = {nullptr, message, 0, reinterpret_cast<LPARAM>(setting), 0, {}};
        ::EnumThreadWindows(::GetCurrentThreadId(), &SendTo, reinterpret_cast<LPARAM>(&sent));
    }
};

} // namespace

TEST(SystemTheme, ControlFollowsLiveWhileItsOptionIsOn)
{
    SystemSays system;
    CalendarScene scene;
    const COLORREF own = scene.calendar->GetColors().highlight;
    system.Now(dayvane::SystemTheme::Dark);
    EXPECT_EQ(scene.calendar->GetTheme(), CalendarTheme::Classic()) << "not asked to";

    CalendarOptions options = scene.calendar->GetOptions();
    options.followSystemTheme = true;
    scene.calendar->SetOptions(options);
    EXPECT_EQ(scene.calendar->GetTheme(), CalendarTheme::Dark()) << "at once";
    EXPECT_EQ(scene.calendar->GetColors().highlight, CalendarTheme::Dark().selection);
    system.Now(dayvane::SystemTheme::HighContrast, WM_SYSCOLORCHANGE, nullptr);
    EXPECT_EQ(scene.calendar->GetTheme(), CalendarTheme::HighContrast());
    system.Now(dayvane::SystemTheme::Dark, WM_SETTINGCHANGE, "intl");
    EXPECT_EQ(scene.calendar->GetTheme(), CalendarTheme::HighContrast()) << "another setting";
    system.Now(dayvane::SystemTheme::Light, WM_THEMECHANGED, nullptr);
    EXPECT_EQ(scene.calendar->GetTheme(), CalendarTheme::Calm());

    options.followSystemTheme = false;
    scene.calendar->SetOptions(options);
    system.Now(dayvane::SystemTheme::Dark);
    EXPECT_EQ(scene.calendar->GetTheme(), CalendarTheme::Calm());
    scene.calendar->SetTheme(CalendarTheme::Classic());
    EXPECT_EQ(scene.calendar->GetColors().highlight, own) << "the colours from before the first theme";
}

TEST(SystemTheme, WatchMayEndItselfAndOthers)
{
    SystemSays system;
    int calls = 0;
    std::unique_ptr<dayvane::SystemThemeWatch> second;
    dayvane::SystemThemeWatch first([&] {
        ++calls;
        second.reset();
        first.Stop();
    });
    second = std::make_unique<dayvane::SystemThemeWatch>([&] { calls += 100; });
    first.Start();
    second->Start();
    system.Now(dayvane::SystemTheme::Dark);
    system.Now(dayvane::SystemTheme::Light);
    EXPECT_EQ(calls, 1);
}

TEST(SystemTheme, EditBoxHasThePagesColours)
{
    CalendarScene scene;
    scene.calendar->SetTheme(CalendarTheme::Dark());
    scene.calendar->BeginEditItem("text");
    CWnd* edit = scene.calendar->GetWindow(GW_CHILD);
    ASSERT_TRUE(edit);
    CClientDC dc(edit);
    const LRESULT brush = scene.calendar->SendMessage(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc.GetSafeHdc()),
                                                      reinterpret_cast<LPARAM>(edit->m_hWnd));
    LOGBRUSH description = {};
    ::GetObject(reinterpret_cast<HGDIOBJ>(brush), sizeof(description), &description);
    EXPECT_EQ(description.lbColor, CalendarTheme::Dark().page);
    EXPECT_EQ(dc.GetTextColor(), CalendarTheme::Dark().pageText);
}

TEST(Scale, FollowsTheResolutionUntilTheHostSetsOne)
{
    constexpr UINT dpiChanged = 0x02E0;
    CalendarScene scene;
    const auto announce = [&](int dpi) { scene.calendar->SendMessage(dpiChanged, MAKEWPARAM(dpi, dpi)); };
    announce(144);
    EXPECT_EQ(scene.calendar->GetScale(), 96) << "not asked to";
    CalendarOptions options = scene.calendar->GetOptions();
    options.followDpi = true;
    scene.calendar->SetOptions(options);
    announce(144);
    EXPECT_EQ(scene.calendar->GetScale(), 144) << "the message says it, whatever the system";
    scene.calendar->SetScale(192);
    announce(120);
    EXPECT_EQ(scene.calendar->GetScale(), 192);
}

TEST(Scale, TextFontSetsFaceAndHeightOfLines)
{
    CalendarScene scene;
    const auto textHeight = [&] {
        LOGFONT description = {};
        scene.calendar->GetFont(0)->GetLogFont(&description);
        return description.lfHeight;
    };
    EXPECT_EQ(textHeight(), 12);
    scene.calendar->SetScale(144);
    EXPECT_EQ(textHeight(), 18);
    CFont font;
    font.CreateFont(30, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, ANSI_CHARSET, 0, 0, 0, 0, "Arial");
    scene.calendar->SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font.GetSafeHandle()), TRUE);
    EXPECT_EQ(textHeight(), 30) << "a font of the present scale";
    EXPECT_GE(scene.calendar->GetViewScale().textGrowth, 10);
    scene.calendar->SetScale(96);
    EXPECT_EQ(textHeight(), 20);
}

TEST(Scale, ModernFontsAreTheMessageFontWithTheCharactersOfTheSystem)
{
    const CalendarFonts fonts = CalendarFonts::Modern();
    EXPECT_NE(fonts.text.lfHeight, 0);
    EXPECT_GT(std::abs(fonts.caption.lfHeight), std::abs(fonts.text.lfHeight));
    CalendarScene scene;
    scene.calendar->SetFonts(fonts);
    LOGFONT shown = {};
    scene.calendar->GetFont(0)->GetLogFont(&shown);
    EXPECT_STREQ(shown.lfFaceName, fonts.text.lfFaceName);
    CClientDC dc(scene.calendar);
    CFont* before = dc.SelectObject(scene.calendar->GetFont(0));
    TEXTMETRIC metrics = {};
    dc.GetTextMetrics(&metrics);
    dc.SelectObject(before);
    EXPECT_EQ(scene.calendar->GetViewScale().Line(12), std::max<int>(metrics.tmHeight, 12)) << "lines hold the text";
}

TEST(SystemEras, NewerOnesThanTheTablesComeFromTheRegistry)
{
    constexpr WCHAR kKey[] = L"Software\\DayvaneTestEras";
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &key,
                                nullptr),
              ERROR_SUCCESS);
    const auto put = [key](const WCHAR* day, const WCHAR* names) {
        ::RegSetValueExW(key, day, 0, REG_SZ, reinterpret_cast<const BYTE*>(names),
                         static_cast<DWORD>((wcslen(names) + 1) * sizeof(WCHAR)));
    };
    put(L"2060 04 01", L"\u5F8C\u5143_\u5F8C_Kougen_K");
    put(L"2019 05 01", L"\u4EE4\u548C_\u4EE4_Reiwa_R"); // in the table
    put(L"2050 01 01", L"\u65B0\u5143_\u65B0_Shingen_X");
    put(L"no date", L"x");
    dayvane::EraTable eras;
    const std::size_t before = eras.Eras().size();
    EXPECT_EQ(dayvane::AddSystemEras(eras, HKEY_CURRENT_USER, kKey), 2);
    ASSERT_EQ(eras.Eras().size(), before + 2);
    EXPECT_EQ(eras.Eras()[before].english, "Shingen") << "in the order of their days";
    EXPECT_EQ(eras.Format({2060, 4, 1}, dayvane::EraStyle::Short), "K1.4.1");
    EXPECT_EQ(dayvane::AddSystemEras(eras, HKEY_CURRENT_USER, L"Software\\DayvaneNoSuchKey"), 0);
    ::RegCloseKey(key);
    ::RegDeleteKeyW(HKEY_CURRENT_USER, kKey);
}
