// Days with their items, one below the other through the columns of as many sheets as it takes: agendas, and what goes
// on from a month's cell, a diary's box or a grid of hours.
#pragma once

#include "ItemEntry.h"

namespace dayvane {

struct DaySection
{
    int day = 0;
    std::u16string heading;
    std::u16string note; // beside the heading
    std::u16string sky;  // likewise: what is said of every day
    double moon = -1;    // stands before that; see PrintDay
    COLORREF color = 0;  // of the heading
    std::vector<ItemPiece> pieces;
    bool namesDates = false;  // its pieces lie on several days: each has its dates before it
    std::u16string emptyText; // stands for items where there are none
    int sheet = 0;            // out: on which sheet it begins, 1: the first

    std::u16string AllNotes() const { return sky.empty() ? note : note.empty() ? sky : note + u"　" + sky; }
};

// Heading, note and colour of a day; no pieces.
DaySection SectionOf(const PageContext& context, int day);

struct FlowLook
{
    int columns = 1;
    SheetHeading heading;      // of the sheets that the flow begins
    std::u16string laterTitle; // of the second of these sheets and all after it
};

// Places the sections on new sheets. No break comes between a heading and the first line after it; a section that goes
// on in another column has its heading there again, marked as continued.
void FlowSections(PageWriter& writer, const PageContext& context, const FlowLook& look,
                  std::vector<DaySection>& sections);

// As many columns as give lines of a readable length.
int ColumnsFor(const PageContext& context, int width);

} // namespace dayvane
