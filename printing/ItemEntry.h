// An item in a list, a diary box or a month's cell: a strip of its colour, its time, its words, its place.
#pragma once

#include "PageWriter.h"

#include <vector>

namespace dayvane {

// The part of an item that stands in one place: one day, or the days of a bar.
struct ItemPiece
{
    int item; // of the source
    int firstDay;
    int lastDay;
};

struct EntryLook
{
    PageFont font;
    PageFont timeFont;
    int timeWidth = 0;  // of a column for the time; 0: the time stands before the first word
    int placeWidth = 0; // of a column for the place; 0: the place gets a line of its own
    bool withTime = true;
    bool withEndTime = false;
    std::u16string dateText; // stands for the time
    bool withPlace = false;
    std::u16string placeText; // stands for the place
    bool withImage = true;
    int mostLines = 0; // of the words; 0: as many as it takes
};

struct EntryRun
{
    CPoint at; // from the entry's upper left corner; the same y for all of one line
    int drop;  // of a smaller font, so that all of a line stand on one base line
    int width;
    std::u16string text;
    PageFont font;
    PageRole role;
};

// Laid out for a width, ready to be drawn anywhere.
struct Entry
{
    ItemPiece piece = {};
    int height = 0;
    int image = -1; // at the left of the first line's words
    int imageLeft = 0;
    bool isCut = false;         // words are left out, or broken where no break is allowed
    std::vector<EntryRun> runs; // from top to bottom
};

Entry LayOutEntry(const PageContext& context, const ItemPiece& piece, int width, const EntryLook& look);
// The part of an entry from its line `from` to before its line `to` (positions of runs), moved up to y 0.
Entry PartOf(const Entry& entry, std::size_t from, std::size_t to);
// paper: the colour that it is drawn on.
void DrawEntry(PageWriter& writer, const PageContext& context, const Entry& entry, CPoint at, int width,
               COLORREF paper = 0xFFFFFF);

// A bar over the days of the piece: one line, with triangles where the item begins before or goes on afterwards.
int BarHeight(const PageStyle& style);
int LaneStep(const PageStyle& style); // from one bar to the next
void DrawBar(PageWriter& writer, const PageContext& context, const ItemPiece& piece, CRect rect);

// The time beside the words: begin (and end) on a day of the item; empty where it says nothing.
std::u16string TimeOfPiece(const PrintTexts& texts, const PrintItem& item, int day, bool withEnd);
// The words, with "(2/3)" on the days of a longer item.
std::u16string WordsOfPiece(const PageContext& context, const ItemPiece& piece);
PageFont FontOf(const PrintItem& item, PageFont font);

// The pieces of the items on one day: whole-day ones first, then in the order of time; `items` are positions in the
// source in the order of their starts.
std::vector<ItemPiece> PiecesOfDay(const PrintSource& source, const std::vector<int>& items, int day);
// The items that touch the days, in the order of their starts: of equal ones the longer first.
std::vector<int> ItemsOf(const PrintSource& source, int firstDay, int lastDay);

} // namespace dayvane
