// Common controls: image lists.
#pragma once

#include <afxwin.h>
#include <commctrl.h>

// A list of equally large pictures. Owns its handle.
class CImageList : public CObject
{
    DECLARE_DYNCREATE(CImageList)
public:
    CImageList() = default;
    ~CImageList() override { DeleteImageList(); }
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;

    HIMAGELIST m_hImageList = nullptr;
    operator HIMAGELIST() const { return m_hImageList; }
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }

    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    BOOL Create(CImageList* pImageList); // a copy of the other list
    BOOL Attach(HIMAGELIST hImageList);
    HIMAGELIST Detach();
    BOOL DeleteImageList();

    int GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
    BOOL GetImageInfo(int nImage, IMAGEINFO* pImageInfo) const
    {
        return ::ImageList_GetImageInfo(m_hImageList, nImage, pImageInfo);
    }
    int Add(CBitmap* pbmImage, CBitmap* pbmMask)
    {
        return ::ImageList_Add(m_hImageList, *pbmImage, pbmMask != nullptr ? static_cast<HBITMAP>(*pbmMask) : nullptr);
    }
    int Add(CBitmap* pbmImage, COLORREF crMask) { return ::ImageList_AddMasked(m_hImageList, *pbmImage, crMask); }
    int Add(HICON hIcon) { return ::ImageList_AddIcon(m_hImageList, hIcon); }
    BOOL Remove(int nImage) { return ::ImageList_Remove(m_hImageList, nImage); }
    COLORREF SetBkColor(COLORREF cr) { return ::ImageList_SetBkColor(m_hImageList, cr); }
    // A copy of the image as an icon; the caller destroys it.
    HICON ExtractIcon(int nImage) { return ::ImageList_GetIcon(m_hImageList, nImage, ILD_NORMAL); }
    BOOL Draw(CDC* pDC, int nImage, POINT pt, UINT nStyle)
    {
        return ::ImageList_Draw(m_hImageList, nImage, pDC->GetSafeHdc(), pt.x, pt.y, nStyle);
    }
};
