// A printed page as a value: what is drawn, where, in which look; no device knows of it.
//
// Units: tenths of a millimetre from the upper left corner of the sheet; widths of lines are hundredths of a
// millimetre, font sizes tenths of a point. Rectangles exclude their right and bottom edges. Colours are COLORREF
// values (0x00BBGGRR). Texts are UTF-16.
#pragma once

#include <atltypes.h>

#include <string>
#include <vector>

namespace dayvane {

constexpr int kUnitsPerMillimetre = 10;

// Which of two faces: one that has Japanese characters, or a Latin one for numbers.
enum class PageFace
{
    Text,
    Latin
};

struct PageFont
{
    PageFace face = PageFace::Text;
    int size = 90; // tenths of a point
    bool bold = false;
    bool italic = false;

    // The height of a line and the distance from its top to the base line of its text, the same for both faces, so that
    // texts of both stand on one line.
    int LineHeight() const { return (size * kLeadingPercent * kUnitsPerInch + kRounding) / (kPointTenths * 100); }
    int Ascent() const { return size * kUnitsPerInch / kPointTenths; }

    friend bool operator==(const PageFont& a, const PageFont& b)
    {
        return a.face == b.face && a.size == b.size && a.bold == b.bold && a.italic == b.italic;
    }

private:
    static constexpr int kUnitsPerInch = 254;
    static constexpr int kPointTenths = 720; // of an inch
    static constexpr int kLeadingPercent = 128;
    static constexpr int kRounding = kPointTenths * 100 - 1;
};

enum class PageAlign
{
    Left,
    Center,
    Right
};

// What a text is there for.
enum class PageRole
{
    Title,
    ColumnHeading, // over a column of days
    DayHeading,    // of a day's box or list; also the number in a month's cell
    DayNote,       // holiday, solar term, lunar date, the host's text of the day
    ItemText,      // the words of an item, or its continued lines
    ItemTime,
    ItemPlace,
    Continued, // names the sheet on which something goes on
    Label,     // hours, headings of lists, small months
    Footer
};

struct PageText
{
    CRect box; // one line: as high as the font's line, the text within its width
    std::u16string text;
    PageFont font;
    PageAlign align = PageAlign::Left;
    COLORREF color = 0;
    PageRole role = PageRole::Label;
    int item = -1; // which item of the source, -1: none
    int day = 0;   // day number of what is shown, 0: none
};

struct PageShape
{
    enum Kind
    {
        Fill,
        Frame, // the pen lies inside the rectangle
        Line,  // from the upper left to the lower right corner; one of the extents is 0
        Ahead, // a triangle that points to the right: it goes on afterwards
        Back,  // to the left: it began before
        Moon   // a disc, the dark part filled
    };
    Kind kind;
    CRect rect;
    COLORREF color;
    int pen = 0;   // hundredths of a millimetre
    int phase = 0; // of a moon: its elongation, degrees
};

struct PageImage
{
    CRect rect;
    int image;           // index into the control's image list
    COLORREF background; // of what it lies on
};

// Drawn in this order: shapes as they come, images, texts.
struct Page
{
    CSize size = CSize(0, 0);
    std::vector<PageShape> shapes;
    std::vector<PageImage> images;
    std::vector<PageText> texts;
};

// How wide texts are.
class TextMeasurer
{
public:
    virtual ~TextMeasurer() = default;
    // ends: for each UTF-16 unit how far the text reaches up to and with it, rounded up; never less than the one
    // before.
    virtual void Measure(const PageFont& font, const std::u16string& text, std::vector<int>& ends) const = 0;

    int WidthOf(const PageFont& font, const std::u16string& text) const
    {
        std::vector<int> ends;
        Measure(font, text, ends);
        return ends.empty() ? 0 : ends.back();
    }
};

} // namespace dayvane
