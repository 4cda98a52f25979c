// Messages about items.
#include "CtlMessages.h"
#include "CtlText.h"

#include "views/timegrid/OverlapColumns.h"

namespace dayvane::ctl {

namespace {

constexpr UINT kItemFlags = DVI_ALLDAY | DVI_ALARM | DVI_RECURRENT | DVI_FIXED | DVI_BOLD | DVI_ITALIC;
constexpr int kFontBold = 1; // bits of tagCC_ITEM::nReserved
constexpr int kFontItalic = 2;
constexpr int kNoPlace = -1; // top of the rectangle of an item that is not shown

DV_ITEM& ItemOf(LPARAM lParam)
{
    return *reinterpret_cast<DV_ITEM*>(lParam);
}

UINT FlagsOf(const tagCC_ITEM& item)
{
    return (item.nFullday == 1 ? DVI_ALLDAY : 0) | (item.bAlarm ? DVI_ALARM : 0) |
           (item.bRecurrent ? DVI_RECURRENT : 0) | (item.bMovable ? 0 : DVI_FIXED) |
           (item.nReserved & kFontBold ? DVI_BOLD : 0) | (item.nReserved & kFontItalic ? DVI_ITALIC : 0);
}

void SetFlags(tagCC_ITEM& item, UINT flags)
{
    item.nFullday = flags & DVI_ALLDAY ? 1 : 0;
    item.bAlarm = (flags & DVI_ALARM) != 0;
    item.bRecurrent = (flags & DVI_RECURRENT) != 0;
    item.bMovable = (flags & DVI_FIXED) == 0;
    item.nReserved = (flags & DVI_BOLD ? kFontBold : 0) | (flags & DVI_ITALIC ? kFontItalic : 0);
}

// Puts what the mask names into the item; 1, or what is wrong with the record.
LRESULT Apply(const DV_ITEM& record, tagCC_ITEM& item)
{
    if ((record.uMask & ~DVIF_ALL) != 0 || (record.uMask & DVIF_FLAGS && record.uFlags & ~kItemFlags)) {
        return DVE_VALUE;
    }
    if (record.uMask & DVIF_TIMES && !(ToDate(record.stStart, item.dtStart) && ToDate(record.stEnd, item.dtEnd))) {
        return DVE_DATE;
    }
    if (record.uMask & DVIF_TEXT) {
        if (record.pszText && !IsPointer(reinterpret_cast<LPARAM>(record.pszText))) {
            return DVE_POINTER;
        }
        item.strText = StoreText(record.pszText);
    }
    if (record.uMask & DVIF_FLAGS) {
        SetFlags(item, record.uFlags);
    }
    if (record.uMask & DVIF_COLORS) {
        item.crColor5 = record.crText;
        item.crColor2 = record.crBackground;
        item.crColor4 = record.crBorder;
        item.crColor3 = record.crShade;
        item.crColor1 = record.crMarks;
    }
    if (record.uMask & DVIF_IMAGE) {
        item.nImage = record.nImage;
    }
    if (record.uMask & DVIF_PARAM) {
        item.lParam = record.lParam;
    }
    return kDone;
}

// The screen item that shows the first piece of an item; nullptr: none does.
const CCalendarCtrl::tagCALENDAR_ITEM* FirstPiece(const CtlWindow& control, int index)
{
    const CCalendarCtrl::CItemArray& screen = control.view->GetScreenItems();
    for (int i = 0; i < screen.GetSize(); ++i) {
        if (screen[i].nSource == index && !screen[i].bNoFocus && screen[i].rcItem.top != kNoPlace) {
            return &screen[i];
        }
    }
    return nullptr;
}

} // namespace

LRESULT OnAddItem(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const DV_ITEM& record = ItemOf(lParam);
    if ((wParam & ~static_cast<WPARAM>(DVU_LATER)) != 0) {
        return DVE_VALUE;
    }
    if ((record.uMask & DVIF_TIMES) == 0) {
        return DVE_DATE;
    }
    tagCC_ITEM item;
    const LRESULT answer = Apply(record, item);
    if (DV_FAILED(answer)) {
        return answer;
    }
    const BOOL isNow = (wParam & DVU_LATER) == 0;
    control.view->AddItem(&item, isNow, isNow);
    return control.view->GetItemCount() - 1;
}

LRESULT OnSetItem(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const int index = static_cast<int>(wParam);
    if (!IsItem(control, index)) {
        return DVE_INDEX;
    }
    tagCC_ITEM item;
    control.view->GetItem(index, item);
    const LRESULT answer = Apply(ItemOf(lParam), item);
    if (!DV_FAILED(answer)) {
        control.view->SetItem(index, &item);
    }
    return answer;
}

LRESULT OnGetItem(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const int index = static_cast<int>(wParam);
    DV_ITEM& record = ItemOf(lParam);
    if (!IsItem(control, index)) {
        return DVE_INDEX;
    }
    if ((record.uMask & ~DVIF_ALL) != 0) {
        return DVE_VALUE;
    }
    tagCC_ITEM item;
    control.view->GetItem(index, item);
    if (record.uMask & DVIF_TIMES) {
        record.stStart = FromDate(item.dtStart);
        record.stEnd = FromDate(item.dtEnd);
    }
    if (record.uMask & DVIF_TEXT) {
        record.cchText = CopyText(WideOfStore(LPCTSTR(item.strText)), record.pszText, record.cchText);
    }
    if (record.uMask & DVIF_FLAGS) {
        record.uFlags = FlagsOf(item);
    }
    if (record.uMask & DVIF_COLORS) {
        record.crText = item.crColor5;
        record.crBackground = item.crColor2;
        record.crBorder = item.crColor4;
        record.crShade = item.crColor3;
        record.crMarks = item.crColor1;
    }
    if (record.uMask & DVIF_IMAGE) {
        record.nImage = item.nImage;
    }
    if (record.uMask & DVIF_PARAM) {
        record.lParam = item.lParam;
    }
    return kDone;
}

LRESULT OnDeleteItem(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const int index = static_cast<int>(wParam);
    if (!IsItem(control, index)) {
        return DVE_INDEX;
    }
    if ((lParam & ~static_cast<LPARAM>(DVU_LATER)) != 0) {
        return DVE_VALUE;
    }
    const BOOL isNow = (lParam & DVU_LATER) == 0;
    const int current = control.view->GetCurSel();
    // The store's own index is not adjusted, and the screen list is of the items as they were: both name others now.
    control.view->SetSelScreenItem(-1);
    control.view->SetCurSel(current == index ? -1 : current > index ? current - 1 : current);
    control.view->DeleteItem(index, isNow, isNow);
    return kDone;
}

LRESULT OnDeleteAllItems(CtlWindow& control, WPARAM, LPARAM)
{
    control.view->SetSelScreenItem(-1);
    control.view->SetCurSel(-1);
    control.view->DeleteAllItems();
    control.view->Refresh();
    return kDone;
}

LRESULT OnGetCount(CtlWindow& control, WPARAM, LPARAM)
{
    return control.view->GetItemCount();
}

LRESULT OnGetItemRect(CtlWindow& control, WPARAM wParam, LPARAM lParam)
{
    const int index = static_cast<int>(wParam);
    if (!IsItem(control, index)) {
        return DVE_INDEX;
    }
    const CCalendarCtrl::tagCALENDAR_ITEM* piece = FirstPiece(control, index);
    if (!piece) {
        return kNone;
    }
    CRect rect = piece->rcItem;
    if (control.timeGrid && !IsBandItem(*piece)) {
        rect.OffsetRect(0, -control.view->GetVertScrollOffset());
    }
    *reinterpret_cast<RECT*>(lParam) = rect;
    return kDone;
}

LRESULT OnEnsureVisible(CtlWindow& control, WPARAM wParam, LPARAM)
{
    const int index = static_cast<int>(wParam);
    if (!IsItem(control, index)) {
        return DVE_INDEX;
    }
    return control.timeGrid->EnsureVisible(index) ? kDone : kNone;
}

LRESULT OnSetImageList(CtlWindow& control, WPARAM, LPARAM lParam)
{
    CImageList images;
    if (!images.Attach(reinterpret_cast<HIMAGELIST>(lParam))) {
        return DVE_FAILED;
    }
    const bool isSet = control.view->SetImageList(&images) != 0;
    images.Detach();
    if (!isSet) {
        return DVE_FAILED;
    }
    control.view->Refresh();
    return kDone;
}

} // namespace dayvane::ctl
