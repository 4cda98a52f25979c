// The drawing operations of one paint in a bare loop, to measure a control's painting against: what the system itself
// takes for the same fills, gradients, lines and texts.
//
// The operations are taken from the paint by a metafile, so no view needs a list of its own. Texts stand there as they
// reach the screen: measured, cut and placed. Pens and fonts are made once, before the loop.
#pragma once

#include <afxwin.h>

#include <functional>
#include <vector>

namespace bench {

class RawPicture
{
public:
    // Runs `paint` on a recording context of that size, in pixels of `reference`.
    RawPicture(CDC* reference, CSize size, const std::function<void(CDC*)>& paint);
    ~RawPicture();
    RawPicture(const RawPicture&) = delete;
    RawPicture& operator=(const RawPicture&) = delete;

    void Draw(CDC* pDC);
    int OperationCount() const { return static_cast<int>(m_records.size()); }

private:
    static int CALLBACK Collect(HDC hDC, HANDLETABLE* objects, const ENHMETARECORD* record, int count, LPARAM self);

    HENHMETAFILE m_file = nullptr;
    std::vector<std::vector<DWORD>> m_records; // all but those that make and delete objects
    std::vector<HGDIOBJ> m_objects;            // a HANDLETABLE
};

} // namespace bench
