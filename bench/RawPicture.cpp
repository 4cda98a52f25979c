#include "RawPicture.h"

#include <algorithm>
#include <cstring>

namespace bench {
namespace {

bool MakesObject(DWORD type)
{
    constexpr DWORD kTypes[] = {EMR_CREATEPEN,
                                EMR_EXTCREATEPEN,
                                EMR_CREATEBRUSHINDIRECT,
                                EMR_EXTCREATEFONTINDIRECTW,
                                EMR_CREATEDIBPATTERNBRUSHPT,
                                EMR_CREATEMONOBRUSH};
    return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

// What belongs to the file and not to the picture. A bare loop has no need of saved states either.
bool IsFraming(DWORD type)
{
    constexpr DWORD kTypes[] = {EMR_HEADER, EMR_EOF, EMR_DELETEOBJECT, EMR_GDICOMMENT, EMR_SAVEDC, EMR_RESTOREDC};
    return std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
}

} // namespace

int CALLBACK RawPicture::Collect(HDC hDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM lParam)
{
    RawPicture& self = *reinterpret_cast<RawPicture*>(lParam);
    if (MakesObject(record->iType)) {
        // The number of an object is the first field of its record. One number may be used again after a deletion: the
        // picture keeps the last.
        ::PlayEnhMetaFileRecord(hDC, reinterpret_cast<HANDLETABLE*>(self.m_objects.data()), record,
                                static_cast<UINT>(self.m_objects.size()));
    } else if (!IsFraming(record->iType)) {
        std::vector<DWORD> copy(record->nSize / sizeof(DWORD));
        std::memcpy(copy.data(), record, record->nSize);
        self.m_records.push_back(std::move(copy));
    }
    return 1;
}

RawPicture::RawPicture(CDC* reference, CSize size, const std::function<void(CDC*)>& paint)
{
    // The frame is in hundredths of a millimetre.
    const int widthMm = reference->GetDeviceCaps(HORZSIZE);
    const int heightMm = reference->GetDeviceCaps(VERTSIZE);
    const CRect frame(0, 0, ::MulDiv(size.cx, widthMm * 100, reference->GetDeviceCaps(HORZRES)),
                      ::MulDiv(size.cy, heightMm * 100, reference->GetDeviceCaps(VERTRES)));
    CDC recorder;
    recorder.Attach(::CreateEnhMetaFile(reference->m_hDC, nullptr, &frame, nullptr));
    // A metafile has no size of its own: painters that leave out what is not seen ask for the clip box.
    recorder.IntersectClipRect(0, 0, size.cx, size.cy);
    paint(&recorder);
    m_file = ::CloseEnhMetaFile(recorder.Detach());
    ENHMETAHEADER header = {};
    ::GetEnhMetaFileHeader(m_file, sizeof(header), &header);
    m_objects.assign(std::max<int>(header.nHandles, 1), nullptr);
    m_objects[0] = reinterpret_cast<HGDIOBJ>(m_file);
    ::EnumEnhMetaFile(reference->m_hDC, m_file, &RawPicture::Collect, this, &frame);
}

RawPicture::~RawPicture()
{
    for (size_t i = 1; i < m_objects.size(); ++i) {
        if (m_objects[i]) {
            ::DeleteObject(m_objects[i]);
        }
    }
    ::DeleteEnhMetaFile(m_file);
}

void RawPicture::Draw(CDC* pDC)
{
    for (const std::vector<DWORD>& record : m_records) {
        ::PlayEnhMetaFileRecord(pDC->m_hDC, reinterpret_cast<HANDLETABLE*>(m_objects.data()),
                                reinterpret_cast<const ENHMETARECORD*>(record.data()),
                                static_cast<UINT>(m_objects.size()));
    }
}

} // namespace bench
