// Draws a page into a metafile and lists the texts that it holds.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>
#include <vector>

struct DrawnText
{
    std::wstring text;
    CRect bounds; // device pixels
};

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
        std::vector<DrawnText> texts;
        ::EnumEnhMetaFile(nullptr, m_file, &Collect, &texts, nullptr);
        return texts;
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

    static int CALLBACK Collect(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM data)
    {
        if (record->iType == EMR_EXTTEXTOUTW) {
            const auto* text = reinterpret_cast<const EMREXTTEXTOUTW*>(record);
            const auto* words =
                reinterpret_cast<const wchar_t*>(reinterpret_cast<const char*>(text) + text->emrtext.offString);
            reinterpret_cast<std::vector<DrawnText>*>(data)->push_back(
                {std::wstring(words, text->emrtext.nChars),
                 CRect(text->rclBounds.left, text->rclBounds.top, text->rclBounds.right, text->rclBounds.bottom)});
        }
        return TRUE;
    }

    CDC m_dc;
    HENHMETAFILE m_file = nullptr;
};
