// The base control's items on demand: when it asks its source, and how it takes an answer.
#include "core/CalendarCtrl.h"

#include "core/DateMath.h"
#include "core/ItemFeed.h"
#include "core/ItemStore.h"
#include "core/PointerDriver.h"
#include "core/TimeIndex.h"

using namespace dayvane;

namespace {
// The placeholder: a box with three dots, pixels.
constexpr int kLoadingWidth = 64;
constexpr int kLoadingHeight = 24;
constexpr int kDots = 3;
constexpr int kDotSize = 4;
constexpr int kDotStep = 12;
} // namespace

void CCalendarCtrl::SetItemSource(ItemSource* pSource)
{
    m_pFeed.reset();
    if (pSource) {
        const std::shared_ptr<std::atomic<HWND>> window = m_feedWindow;
        m_pFeed = std::make_unique<ItemFeed>(*pSource, [window] {
            if (const HWND hWnd = *window) {
                ::PostMessage(hWnd, kItemFeedMessage, 0, 0);
            }
        });
    }
    InvalidateClient(); // the placeholder
    ItemsWanted();
}

void CCalendarCtrl::ReloadItems()
{
    if (m_pFeed) {
        m_pFeed->AskAgain();
        ItemsWanted();
    }
}

BOOL CCalendarCtrl::IsLoadingItems() const
{
    return m_pFeed && m_pFeed->IsLoading();
}

// By a message: the source may do anything, and a layout is no place for that. Messages come before the next paint.
void CCalendarCtrl::ItemsWanted()
{
    if (m_pFeed && m_hWnd && !m_bFeedPosted) {
        *m_feedWindow = m_hWnd;
        m_bFeedPosted = PostMessage(kItemFeedMessage);
    }
}

void CCalendarCtrl::UpdateItems()
{
    OnItemFeed(TRUE, 0);
}

LRESULT CCalendarCtrl::OnItemFeed(WPARAM bAlsoHeld, LPARAM)
{
    m_bFeedPosted = FALSE;
    if (!m_pFeed || !m_hWnd) {
        return 0;
    }
    const WindowAlive alive(this, m_life);
    const BOOL wasLoading = IsLoadingItems();
    COleDateTime first;
    COleDateTime last;
    GetViewRange(first, last);
    if (IsValid(first) || IsValid(last)) {
        // Beyond the years of dates there is nothing to ask for.
        m_pFeed->Show(IsValid(first) ? DayNumberOf(first) : ItemFeed::kBeforeDates,
                      IsValid(last) ? DayNumberOf(last) : ItemFeed::kAfterDates);
    }
    if (!alive || !m_pFeed) {
        return 0;
    }
    // What the user holds or edits stays where it is.
    if (bAlsoHeld || (!m_pointer->Tracker().IsBusy() && !m_pEdit)) {
        TakeFedItems();
    }
    if (IsLoadingItems() != wasLoading) {
        const CRect box = LoadingBox();
        InvalidateRect(&box, FALSE);
    }
    return 0;
}

void CCalendarCtrl::TakeFedItems()
{
    std::vector<tagCC_ITEM> items;
    if (!m_pFeed->Take(items)) {
        return;
    }
    const bool hasCurrent = m_nCurSel >= 0 && m_nCurSel < GetItemCount();
    const LPARAM current = hasCurrent ? m_arItem[m_nCurSel].lParam : 0;
    ForgetItems();
    StoreReserve(m_arItem, static_cast<int>(items.size()));
    m_nCurSel = m_nSelScreenItem = -1;
    for (const tagCC_ITEM& item : items) {
        if (hasCurrent && m_nCurSel == -1 && item.lParam == current) {
            m_nCurSel = GetItemCount();
        }
        StoreAdd(m_arItem, item);
    }
    Refresh();
}

CRect CCalendarCtrl::LoadingBox() const
{
    const CPoint corner = m_rcContent.CenterPoint() - CSize(kLoadingWidth / 2, kLoadingHeight / 2);
    return CRect(corner, CSize(kLoadingWidth, kLoadingHeight));
}

void CCalendarCtrl::DrawLoading(CDC* pDC) const
{
    const CRect box = LoadingBox();
    pDC->FillSolidRect(&box, m_colors.content);
    pDC->Draw3dRect(&box, m_colors.grid, m_colors.grid);
    const CPoint middle = box.CenterPoint();
    for (int dot = 0; dot < kDots; ++dot) {
        const int left = middle.x + (dot - kDots / 2) * kDotStep - kDotSize / 2;
        pDC->FillSolidRect(left, middle.y - kDotSize / 2, kDotSize, kDotSize, m_colors.border);
    }
}
