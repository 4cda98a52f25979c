// What a calendar control remembers of the user's hands, besides the pointer's press (core/PointerDriver.h). Of the
// library's own files only.
#pragma once

#include "PaintBuffer.h"
#include "PartTip.h"
#include "TodayWatch.h"
#include "WheelSteps.h"

#include <afxdisp.h>

#include <functional>
#include <string>
#include <utility>

namespace dayvane {

constexpr UINT_PTR kCarryTimer = 0x4B4D;  // runs while keys carry an item
constexpr UINT_PTR kBufferTimer = 0x4B42; // runs while the paint buffer is kept

// Where the keys go in a view.
enum class ViewPlace
{
    Title,
    Band, // of the whole days
    Grid,
    Mark, // that counts hidden items
};

struct SelectedRange
{
    COleDateTime begin;
    COleDateTime end;
    BOOL wholeDays = FALSE;

    bool operator==(const SelectedRange& other) const
    {
        return begin == other.begin && end == other.end && wholeDays == other.wholeDays;
    }
};

struct Interaction
{
    explicit Interaction(std::function<void()> onNewDay) : today(std::move(onNewDay)) {}

    TodayWatch today;
    PaintBuffer buffer;
    bool showsFocus = false;                // the keyboard was used after the mouse
    CRect paintedFocus = CRect(0, 0, 0, 0); // where the window shows it now; empty: nowhere
    bool tabsBack = false;                  // the item that Tab looks for is an earlier one

    ViewPlace place = ViewPlace::Grid; // the selection says whether it is the band
    int mark = 0;                      // position in ViewParts::marks, while the place is a mark
    SelectedRange beforeBand;          // what was selected in the rows

    bool isEnding = false; // the window is being destroyed: nothing is reported any more

    SelectedRange beforePress; // what Escape restores
    SelectedRange afterPress;  // what a sweep or a drag began with
    int reports = 0;           // messages that are being handled and may change the selection

    WheelSteps wheel;
    WheelSteps pageWheel;
    WheelSteps scaleWheel;

    PartTip tip;
    CRect tipPart = CRect(0, 0, 0, 0);
    std::u16string tipText;

    int editedItem = -1; // of the open edit box
    LPARAM editedData = 0;
    unsigned editedVersion = 0; // of the items when it was opened
};

} // namespace dayvane
