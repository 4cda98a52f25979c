#include "CtlWindow.h"

#include "CtlText.h"
#include "dayvane_ctl.h"

#include "core/DateMath.h"
#include "core/Interaction.h"
#include "core/WindowHelpers.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/WeekViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"
#include "views/timegrid/DayViewCtrl.h"

#include <type_traits>

namespace dayvane::ctl {

namespace {

// The host's message loop has no idle time in which temporary objects are freed: they go with the outermost message.
class TemporaryObjects
{
public:
    TemporaryObjects() { AfxLockTempMaps(); }
    ~TemporaryObjects() { AfxUnlockTempMaps(TRUE); }
    TemporaryObjects(const TemporaryObjects&) = delete;
    TemporaryObjects& operator=(const TemporaryObjects&) = delete;
};

// The other notifications are the controls' own: their records are those of the C interface.
static_assert(sizeof(DVN_ITEM) == sizeof(NMCALENDARITEM) &&
              offsetof(DVN_ITEM, stTime) == offsetof(NMCALENDARITEM, time));
static_assert(sizeof(DVN_DATES) == sizeof(NMCALENDARDATES) &&
              offsetof(DVN_DATES, nValue) == offsetof(NMCALENDARDATES, nValue));
static_assert(sizeof(DVN_SELECTION) == sizeof(NMCALENDARSELECTION) &&
              offsetof(DVN_SELECTION, nCause) == offsetof(NMCALENDARSELECTION, nCause));
static_assert(int{DVSEL_KEY} == CCSEL_KEY && int{DVSEL_SCROLL} == CCSEL_SCROLL);

// A control on the heap, to the end of its window.
template <class Control>
class Hosted : public Control
{
protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const TemporaryObjects temporaries;
        return Control::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override
    {
        Control::PostNcDestroy();
        delete this;
    }
};

// A view: its edit box reports in UTF-16.
template <class View>
class HostedView : public Hosted<View>
{
protected:
    void EndEditItem(const char* lpszText, int nMode) override
    {
        COleDateTime begin;
        COleDateTime end;
        this->GetSelRange(begin, end);
        const std::wstring text = WideOfStore(lpszText);
        DVN_EDIT record = {};
        record.hdr = NotifyHeader(*this, CCN_IPE_ENDEDITITEM);
        record.pszText = text.c_str();
        record.cchText = static_cast<int>(text.size());
        ToSystemTime(begin, record.stFirst);
        ToSystemTime(end, record.stLast);
        record.nMode = nMode;
        const Interaction& began = *this->m_interaction;
        record.nItem = began.editedVersion == this->m_nItemVersion ? began.editedItem : -1;
        record.lParam = began.editedData;
        this->m_bEditing = FALSE;
        NotifyParent(*this, record.hdr);
    }
};

// The button is a child of a window of our own: only from a parent of this library does a button learn of its clicks.
class PickerHost : public CWnd
{
public:
    CYearMonthPickerCtrl picker;

    void Prepare()
    {
        ModifyStyleEx(0, WS_EX_CONTROLPARENT);
        CRect client;
        GetClientRect(&client);
        if (!picker.Create("", WS_CHILD | WS_VISIBLE | WS_TABSTOP, client, this, kButtonId)) {
            return;
        }
        picker.EnableWindow(IsWindowEnabled());
        CRect button;
        picker.GetWindowRect(&button);
        CRect own;
        GetWindowRect(&own);
        const CSize frame = own.Size() - client.Size();
        SetWindowPos(nullptr, 0, 0, button.Width() + frame.cx, button.Height() + frame.cy,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message) {
        case WM_SIZE:
            if (picker.m_hWnd) {
                picker.SetWindowPos(nullptr, 0, 0, LOWORD(lParam), HIWORD(lParam), SWP_NOZORDER | SWP_NOACTIVATE);
            }
            break;
        case WM_SETFOCUS:
            picker.SetFocus();
            return 0;
        case WM_ENABLE:
            picker.EnableWindow(wParam != 0);
            break;
        case YMN_DATECHANGE:
        case YMN_DROPDOWN:
        case YMN_CLOSEUP:
        case YMN_SELENDOK:
        case YMN_SELENDCANCEL:
            return ::SendMessage(::GetParent(m_hWnd), message, wParam, GetDlgCtrlID());
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    static constexpr UINT kButtonId = 1;
};

template <class View>
std::unique_ptr<CtlWindow> MakeView(unsigned kind)
{
    auto control = std::make_unique<CtlWindow>();
    auto* view = new HostedView<View>;
    control->kind = kind;
    control->window = control->view = view;
    view->SetTextCodePage(kStoreCodePage);
    if constexpr (std::is_base_of_v<CTimeGridCtrl, View>) {
        control->timeGrid = view;
    }
    if constexpr (std::is_base_of_v<CWeekDayViewCtrl, View>) {
        control->multiDay = view;
    }
    control->prepare = [](CtlWindow&) {};
    return control;
}

template <class Calendar>
std::unique_ptr<CtlWindow> MakeGrid(unsigned kind)
{
    auto control = std::make_unique<CtlWindow>();
    auto* calendar = new Hosted<Calendar>;
    control->kind = kind;
    control->window = control->grid = calendar;
    if constexpr (std::is_base_of_v<CMiniCalendarCtrl, Calendar>) {
        control->miniCalendar = calendar;
    } else {
        control->miniYear = calendar;
    }
    control->prepare = [](CtlWindow&) {};
    return control;
}

std::unique_ptr<CtlWindow> MakePicker(unsigned kind)
{
    auto control = std::make_unique<CtlWindow>();
    auto* host = new Hosted<PickerHost>;
    control->kind = kind;
    control->window = host;
    control->picker = &host->picker;
    control->prepare = [](CtlWindow& self) { static_cast<PickerHost*>(self.window)->Prepare(); };
    return control;
}

const WCHAR* const kClassNames[] = {DAYVANE_DAY,  DAYVANE_MULTIDAY,     DAYVANE_WEEK,     DAYVANE_MONTH,
                                    DAYVANE_YEAR, DAYVANE_MINICALENDAR, DAYVANE_MINIYEAR, DAYVANE_YEARMONTHPICKER,
                                    nullptr};

// What the base class keeps for its derived ones.
struct BaseControl : CCalendarCtrl
{
    static constexpr UINT Edit() { return kEditId; }
};

} // namespace

const WCHAR* const* CtlClassNames()
{
    return kClassNames;
}

std::unique_ptr<CtlWindow> MakeCtlWindow(const WCHAR* className, DWORD style)
{
    const auto isClass = [className](const WCHAR* name) { return ::lstrcmpiW(className, name) == 0; };
    if (isClass(DAYVANE_DAY)) {
        return MakeView<CDayViewCtrl>(kinds::kDay);
    }
    if (isClass(DAYVANE_MULTIDAY)) {
        return MakeView<CWeekDayViewCtrl>(kinds::kMultiDay);
    }
    if (isClass(DAYVANE_WEEK)) {
        return MakeView<CWeekViewCtrl>(kinds::kWeek);
    }
    if (isClass(DAYVANE_MONTH)) {
        return style & DVS_BLOCKS ? MakeView<CMonthViewCtrl2>(kinds::kMonth) : MakeView<CMonthViewCtrl>(kinds::kMonth);
    }
    if (isClass(DAYVANE_YEAR)) {
        return MakeView<CYearViewCtrl>(kinds::kYear);
    }
    if (isClass(DAYVANE_MINICALENDAR)) {
        return MakeGrid<CMiniCalendarCtrl>(kinds::kMiniCalendar);
    }
    if (isClass(DAYVANE_MINIYEAR)) {
        return MakeGrid<CMiniCalendarCtrl2>(kinds::kMiniYear);
    }
    return isClass(DAYVANE_YEARMONTHPICKER) ? MakePicker(kinds::kPicker) : nullptr;
}

HWND EditBoxOf(const CtlWindow& control)
{
    return ::GetDlgItem(control.window->m_hWnd, BaseControl::Edit());
}

} // namespace dayvane::ctl
