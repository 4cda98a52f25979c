// Draws a page into a metafile and lists the texts that it holds.
#pragma once

#include <afxwin.h>

#include <algorithm>
#include <climits>
#include <map>
#include <string>
#include <vector>

struct DrawnText
{
    std::wstring text;
    CRect bounds; // device pixels
    std::wstring face;
    LOGFONTW font = {};
    int baseLine = 0; // device pixels
};

struct InkHeights
{
    int top;
    int bottom;
};

// How far up and down its letters go. The bounds of a record are those of the font's cell, which is higher than a line
// for some faces and lower for others.
inline InkHeights InkOf(const DrawnText& text)
{
    const HDC hDC = ::CreateCompatibleDC(nullptr);
    const HFONT font = ::CreateFontIndirectW(&text.font);
    const HGDIOBJ old = ::SelectObject(hDC, font);
    InkHeights ink = {INT_MAX, INT_MIN};
    for (const wchar_t c : text.text) {
        const MAT2 same = {{0, 1}, {0, 0}, {0, 0}, {0, 1}};
        GLYPHMETRICS glyph = {};
        if (c != L' ' && ::GetGlyphOutlineW(hDC, c, GGO_METRICS, &glyph, 0, nullptr, &same) != GDI_ERROR) {
            const int top = text.baseLine - static_cast<int>(glyph.gmptGlyphOrigin.y);
            ink.top = std::min(ink.top, top);
            ink.bottom = std::max(ink.bottom, top + static_cast<int>(glyph.gmBlackBoxY));
        }
    }
    ::SelectObject(hDC, old);
    ::DeleteObject(font);
    ::DeleteDC(hDC);
    return ink;
}

class PageRecorder
{
public:
    // The sheet, tenths of a millimetre, and the device that the page is laid out for; nullptr: the screen.
    PageRecorder(CSize paper, HDC reference)
    {
        const RECT frame = {0, 0, paper.cx * 10, paper.cy * 10}; // hundredths of a millimetre
        m_dc.Attach(::CreateEnhMetaFileA(reference, nullptr, &frame, nullptr));
        m_dc.m_bPrinting = TRUE;
        if (reference) {
            m_dc.SetAttribDC(reference);
        }
    }
    ~PageRecorder()
    {
        Finish();
        ::DeleteEnhMetaFile(m_file);
    }
    PageRecorder(const PageRecorder&) = delete;
    PageRecorder& operator=(const PageRecorder&) = delete;

    CDC& Dc() { return m_dc; }

    std::vector<DrawnText> Texts()
    {
        Finish();
        Reading reading;
        ::EnumEnhMetaFile(nullptr, m_file, &Collect, &reading, nullptr);
        return reading.texts;
    }
    int Records()
    {
        Finish();
        ENHMETAHEADER header = {};
        ::GetEnhMetaFileHeader(m_file, sizeof(header), &header);
        return static_cast<int>(header.nRecords);
    }

private:
    void Finish()
    {
        if (!m_dc.m_hDC) {
            return;
        }
        m_dc.ReleaseAttribDC();
        m_file = ::CloseEnhMetaFile(m_dc.Detach());
    }

    struct Reading
    {
        std::vector<DrawnText> texts;
        std::map<DWORD, LOGFONTW> fonts; // by their numbers
        LOGFONTW font = {};              // the selected one
    };

    static int CALLBACK Collect(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM data)
    {
        Reading& reading = *reinterpret_cast<Reading*>(data);
        if (record->iType == EMR_EXTCREATEFONTINDIRECTW) {
            const auto* font = reinterpret_cast<const EMREXTCREATEFONTINDIRECTW*>(record);
            reading.fonts[font->ihFont] = font->elfw.elfLogFont;
        } else if (record->iType == EMR_SELECTOBJECT) {
            const auto font = reading.fonts.find(reinterpret_cast<const EMRSELECTOBJECT*>(record)->ihObject);
            reading.font = font != reading.fonts.end() ? font->second : reading.font;
        } else if (record->iType == EMR_EXTTEXTOUTW) {
            const auto* text = reinterpret_cast<const EMREXTTEXTOUTW*>(record);
            const auto* words =
                reinterpret_cast<const wchar_t*>(reinterpret_cast<const char*>(text) + text->emrtext.offString);
            reading.texts.push_back(
                {std::wstring(words, text->emrtext.nChars),
                 CRect(text->rclBounds.left, text->rclBounds.top, text->rclBounds.right, text->rclBounds.bottom),
                 reading.font.lfFaceName, reading.font, static_cast<int>(text->emrtext.ptlReference.y)});
        }
        return TRUE;
    }

    CDC m_dc;
    HENHMETAFILE m_file = nullptr;
};
