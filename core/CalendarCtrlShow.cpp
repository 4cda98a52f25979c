// The base control's appearance beyond its picture: the keyboard's focus, the disabled look, painting for others, a new
// day, windows that were there before the control, tool tips.
#include "core/CalendarCtrl.h"

#include "core/DrawingHelpers.h"
#include "core/Interaction.h"
#include "core/PointerDriver.h"
#include "core/WindowHelpers.h"

using namespace dayvane;

namespace {
constexpr UINT kBufferMilliseconds = 10000; // without a paint, after which the buffer is freed
constexpr int kFocusInset = 2;              // pixels between the edges of a cell or an item and the focus frame in it
} // namespace

// ---- Windows

void CCalendarCtrl::PreSubclassWindow()
{
    CWnd::PreSubclassWindow();
    m_interaction->today.Start();
}

void CCalendarCtrl::DayHasCome()
{
    TodayChanged();
    InvalidateClient();
}

// ---- Paint

// Where the frame of the focus is seen, empty when it is not.
CRect CCalendarCtrl::FocusFrame()
{
    if (!m_bHasFocus || !m_interaction->showsFocus || !ShowsFocus(m_hWnd)) {
        return CRect(0, 0, 0, 0);
    }
    CRect frame = GetPlaceBox();
    if (frame.IsRectEmpty()) {
        frame = GetFocusBox();
    }
    frame.DeflateRect(kFocusInset, kFocusInset);
    return frame.Width() > 0 && frame.Height() > 0 ? frame : CRect(0, 0, 0, 0);
}

void CCalendarCtrl::OnPaint()
{
    // The frame may have come to another place than what has been invalidated.
    const CRect frame = FocusFrame();
    if (frame != m_interaction->paintedFocus) {
        InvalidateRect(&m_interaction->paintedFocus, FALSE);
        InvalidateRect(&frame, FALSE);
        m_interaction->paintedFocus = frame;
    }
    PaintBuffer& buffer = m_interaction->buffer;
    const bool wasKept = buffer.IsKept();
    {
        CPaintDC dc(this);
        CMemDC memory(&dc, buffer, ClientRectOf(*this).Size());
        PaintAll(&memory);
    }
    if (m_hWnd && !wasKept && buffer.IsKept()) {
        SetTimer(kBufferTimer, kBufferMilliseconds, nullptr);
    }
}

// Of WM_PRINT: the picture goes to a device context that is not clipped to the window.
LRESULT CCalendarCtrl::OnPrintClient(WPARAM wParam, LPARAM)
{
    CDC* pDC = CDC::FromHandle(reinterpret_cast<HDC>(wParam));
    const SaveDcScope saved(pDC);
    const CRect client = ClientRectOf(*this);
    pDC->IntersectClipRect(&client);
    PaintAll(pDC);
    return 0;
}

void CCalendarCtrl::PaintAll(CDC* pDC)
{
    DrawCtrl(pDC);
    if (IsLoadingItems()) {
        DrawLoading(pDC);
    }
    const CRect frame = FocusFrame();
    if (!frame.IsRectEmpty()) {
        DrawFocusFrame(pDC, frame);
    }
    if (!IsWindowEnabled()) {
        const CRect client = ClientRectOf(*this);
        DrawVeil(pDC, client, ::GetSysColor(COLOR_BTNFACE));
    }
}

void CCalendarCtrl::OnEnable(BOOL bEnable)
{
    CWnd::OnEnable(bEnable);
    CancelTracking();
    InvalidateClient();
}

// ---- Focus

// After the keyboard was used the focus is seen, until the mouse is used. Whether it may be seen at all the system says
// for the whole top-level window.
void CCalendarCtrl::ShowFocus(bool bShow)
{
    if (!bShow && m_interaction->place != ViewPlace::Grid) {
        m_interaction->place = ViewPlace::Grid;
        InvalidateClient();
    }
    if (bShow != m_interaction->showsFocus) {
        m_interaction->showsFocus = bShow;
        const CRect box = GetFocusBox();
        InvalidateRect(&box, FALSE);
    }
    if (bShow) {
        ShowFocusCues(m_hWnd);
    }
}

LRESULT CCalendarCtrl::OnUpdateUIState(WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) == UIS_CLEAR && (HIWORD(wParam) & UISF_HIDEFOCUS)) {
        m_interaction->showsFocus = true; // somebody uses the keyboard in this window
    }
    InvalidateClient();
    return Default();
}

// ---- Tool tips

BOOL CCalendarCtrl::FindTip(const tagCCHITTESTINFO&, CRect&, std::u16string&)
{
    return FALSE;
}

void CCalendarCtrl::ShowTip(const tagCCHITTESTINFO& hit)
{
    CRect part(0, 0, 0, 0);
    std::u16string text;
    if ((!m_options.toolTips && !m_options.hitWhatIsSeen) || m_pointer->Tracker().IsBusy() ||
        !FindTip(hit, part, text)) {
        part.SetRectEmpty();
        text.clear();
    }
    Interaction& state = *m_interaction;
    if (part != state.tipPart || text != state.tipText) {
        state.tipPart = part;
        state.tipText = text;
        state.tip.SetPart(*this, part, text);
    }
    state.tip.Relay(*this, WM_MOUSEMOVE, 0, MAKELPARAM(hit.pt.x, hit.pt.y));
}
