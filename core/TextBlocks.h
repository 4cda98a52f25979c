// Texts in boxes that are broken into lines, cut and placed once instead of on every paint.
//
// How the system does that is its own affair, so nothing of it is done here: what it draws for a text in a box is noted
// from its own drawing calls, by way of a metafile, and repeated from then on. A text is noted when it is drawn for the
// second time; one that fits in one line needs no noting.
#pragma once

#include <afxwin.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace dayvane {

class TextCache;

// For the screen; to other devices the system draws.
class TextBlocks
{
public:
    // As DrawWideText in the selected font. widths: of whole lines.
    void Draw(CDC& dc, CFont* pSelectedFont, const std::u16string& text, const CRect& rect, UINT format,
              TextCache& widths);
    // After a paint: notes some of the texts that it has drawn for the second time.
    void Note(CDC& dc);
    // Call it when fonts are deleted: a new font may get the handle of an old one.
    void Clear();
    int CountNoted() const; // texts that are repeated

private:
    struct Key
    {
        HGDIOBJ font;
        int width;
        int height;
        UINT format;
        std::u16string text;
        bool operator==(const Key& other) const
        {
            return font == other.font && width == other.width && height == other.height && format == other.format &&
                   text == other.text;
        }
    };
    struct KeyHash
    {
        size_t operator()(const Key& key) const;
    };
    enum class State
    {
        DRAWN,    // once
        AWAITED,  // to be noted
        NOTED,    // the lines are known
        BY_SYSTEM // its drawing cannot be noted
    };
    struct Line
    {
        int x; // from the corner of the box, pixels
        int y;
        std::wstring text;
    };
    struct Block
    {
        State state = State::DRAWN;
        std::vector<Line> lines;
    };
    struct Noting; // the metafile as it is read

    static int CALLBACK NoteRecord(HDC hDC, HANDLETABLE* objects, const ENHMETARECORD* record, int count,
                                   LPARAM noting);
    Block& Find(CDC& dc, const Key& key, CFont* pFont, TextCache& widths);

    std::unordered_map<Key, Block, KeyHash> m_blocks;
    std::vector<Key> m_awaited;
    size_t m_bytes = 0; // that the blocks take, about; they go when it becomes too many
};

} // namespace dayvane
