#include "core/TextBlocks.h"

#include "core/MixedText.h"
#include "core/TextCache.h"
#include "core/WideText.h"

#include <algorithm>
#include <cstring>

namespace dayvane {
namespace {

constexpr size_t kMaxBytes = 1 << 20;                                // a few screens full of texts
constexpr size_t kBytesOfBlock = 128;                                // besides its texts
constexpr size_t kNotedAtOnce = 16;                                  // so that no paint takes noticeably longer
constexpr UINT kLines = DT_NOPREFIX | DT_WORDBREAK | DT_EDITCONTROL; // the format that breaks lines

bool IsPlainLine(const std::u16string& text)
{
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit >= u' '; });
}

} // namespace

// Each text begins with a comment that holds its number.
struct TextBlocks::Noting
{
    std::vector<Block*> blocks;
    Block* current = nullptr;
};

size_t TextBlocks::KeyHash::operator()(const Key& key) const
{
    constexpr unsigned kPrime = 16777619u; // FNV-1a
    unsigned hash = 2166136261u ^ static_cast<unsigned>(key.width) ^ (static_cast<unsigned>(key.height) << 16);
    for (const char16_t unit : key.text) {
        hash = (hash ^ unit) * kPrime;
    }
    return hash ^ static_cast<unsigned>(reinterpret_cast<UINT_PTR>(key.font));
}

void TextBlocks::Clear()
{
    m_blocks.clear();
    m_awaited.clear();
    m_bytes = 0;
}

int TextBlocks::CountNoted() const
{
    return static_cast<int>(std::count_if(m_blocks.begin(), m_blocks.end(),
                                          [](const auto& entry) { return entry.second.state == State::NOTED; }));
}

// A new one is known at once when it has only one line, or when several faces share it.
TextBlocks::Block& TextBlocks::Find(CDC& dc, const Key& key, CFont* pFont, TextCache& widths)
{
    const auto found = m_blocks.find(key);
    if (found != m_blocks.end()) {
        if (found->second.state == State::DRAWN) {
            found->second.state = State::AWAITED;
            m_awaited.push_back(key);
        }
        return found->second;
    }
    const size_t bytes = kBytesOfBlock + 2 * key.text.size() * (sizeof(char16_t) + sizeof(wchar_t));
    if (m_bytes + bytes > kMaxBytes) {
        Clear();
    }
    m_bytes += bytes;
    Block& block = m_blocks[key];
    if (IsMixedText(dc.m_hDC, key.text)) {
        block.state = State::BY_SYSTEM;
    } else if (key.format == kLines && IsPlainLine(key.text) && widths.HeightOf(&dc, pFont) <= key.height &&
               widths.WidthOf(&dc, pFont, key.text) <= key.width) {
        block.state = State::NOTED;
        block.lines.push_back({0, 0, std::wstring(key.text.begin(), key.text.end())});
    }
    return block;
}

void TextBlocks::Draw(CDC& dc, CFont* pSelectedFont, const std::u16string& text, const CRect& rect, UINT format,
                      TextCache& widths)
{
    const bool isScreen = ::GetDeviceCaps(dc.m_hDC, TECHNOLOGY) == DT_RASDISPLAY && dc.m_hDC == dc.m_hAttribDC;
    if (!isScreen || rect.IsRectEmpty() || text.empty()) {
        DrawWideText(dc, text, rect, format);
        return;
    }
    const Block& block =
        Find(dc, {pSelectedFont->GetSafeHandle(), rect.Width(), rect.Height(), format, text}, pSelectedFont, widths);
    if (block.state != State::NOTED) {
        DrawWideText(dc, text, rect, format);
        return;
    }
    for (const Line& line : block.lines) {
        ::ExtTextOutW(dc.m_hDC, rect.left + line.x, rect.top + line.y, ETO_CLIPPED, &rect, line.text.c_str(),
                      static_cast<UINT>(line.text.size()), nullptr);
    }
}

int CALLBACK TextBlocks::NoteRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM lNoting)
{
    Noting& noting = *reinterpret_cast<Noting*>(lNoting);
    const char* bytes = reinterpret_cast<const char*>(record);
    if (record->iType == EMR_GDICOMMENT) {
        const EMRGDICOMMENT* comment = reinterpret_cast<const EMRGDICOMMENT*>(record);
        DWORD number = 0;
        if (comment->cbData == sizeof(number)) {
            std::memcpy(&number, comment->Data, sizeof(number));
            noting.current = noting.blocks.at(number);
            noting.current->state = State::NOTED;
        }
    } else if (!noting.current || record->iType == EMR_EOF || record->iType == EMR_SELECTOBJECT ||
               record->iType == EMR_EXTCREATEFONTINDIRECTW || record->iType == EMR_DELETEOBJECT) {
        return 1;
    } else if (record->iType == EMR_EXTTEXTOUTW &&
               reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext.fOptions == ETO_CLIPPED) {
        const EMRTEXT& text = reinterpret_cast<const EMREXTTEXTOUTW*>(record)->emrtext;
        const wchar_t* first = reinterpret_cast<const wchar_t*>(bytes + text.offString);
        noting.current->lines.push_back({static_cast<int>(text.ptlReference.x), static_cast<int>(text.ptlReference.y),
                                         std::wstring(first, text.nChars)});
    } else {
        noting.current->state = State::BY_SYSTEM; // more than plain texts
    }
    return 1;
}

void TextBlocks::Note(CDC& dc)
{
    if (m_awaited.empty()) {
        return;
    }
    const size_t count = std::min(m_awaited.size(), kNotedAtOnce);
    const HDC recorder = ::CreateEnhMetaFileW(dc.m_hAttribDC, nullptr, nullptr, nullptr);
    Noting noting;
    for (size_t i = 0; recorder && i < count; ++i) {
        const Key& key = m_awaited[i];
        Block& block = m_blocks[key];
        block.state = State::BY_SYSTEM; // unless its drawing is read back
        const DWORD number = static_cast<DWORD>(noting.blocks.size());
        noting.blocks.push_back(&block);
        ::SelectObject(recorder, key.font);
        ::GdiComment(recorder, sizeof(number), reinterpret_cast<const BYTE*>(&number));
        RECT rect = {0, 0, key.width, key.height};
        ::DrawTextW(recorder, WideOf(key.text), static_cast<int>(key.text.size()), &rect, key.format);
    }
    if (const HENHMETAFILE file = recorder ? ::CloseEnhMetaFile(recorder) : nullptr) {
        ::EnumEnhMetaFile(nullptr, file, &TextBlocks::NoteRecord, reinterpret_cast<LPVOID>(&noting), nullptr);
        ::DeleteEnhMetaFile(file);
    }
    m_awaited.erase(m_awaited.begin(), m_awaited.begin() + static_cast<std::ptrdiff_t>(count));
}

} // namespace dayvane
