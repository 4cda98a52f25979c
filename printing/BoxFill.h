// Boxes whose items may be more than fit: what stays in the box, what goes on on a later sheet, and the mark in the box
// that names the sheet.
#pragma once

#include "SectionFlow.h"

#include <utility>
#include <vector>

namespace dayvane {

// Collects what did not fit, prints it after everything else and then completes the marks.
class LaterSheets
{
public:
    LaterSheets(PageWriter& writer, const PageContext& context) : m_writer(writer), m_context(context) {}

    // All pieces of a section are handed over in the order in which they shall stand. A section is a day, or whatever
    // the caller counts by `key`.
    void Add(int key, const ItemPiece& piece);
    // The last line of the area is the mark of what the section holds.
    void Mark(int key, const CRect& area);
    // heading: of the sheets; each section is named by `sectionOf`, which gives one without pieces.
    void Print(const SheetHeading& heading, const std::function<DaySection(int)>& sectionOf);

private:
    struct Part
    {
        int key;
        std::vector<ItemPiece> pieces;
    };
    PageWriter& m_writer;
    const PageContext& m_context;
    std::vector<Part> m_parts;
    std::vector<std::pair<int, PageWriter::Later>> m_marks; // by key
};

int MarkHeight(const PageStyle& style);
// From one entry to the next.
int StepOf(const Entry& entry, const PageStyle& style);

// Draws the entries from the top of the area down as far as they fit; the others go to the later sheets, and then, or
// when `hasRest` says that others have gone there already, the area ends with the mark.
void FillBox(PageWriter& writer, const PageContext& context, const CRect& area, const std::vector<Entry>& entries,
             int key, bool hasRest, LaterSheets& later);

// The heights of boxes that share a height: each as its content needs when there is enough, the rest spread so that
// they become as equal as possible; else the largest give way.
std::vector<int> ShareHeight(const std::vector<int>& needs, int height);

} // namespace dayvane
