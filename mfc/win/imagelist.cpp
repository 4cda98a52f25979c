#include <afxcmn.h>

IMPLEMENT_DYNCREATE(CImageList, CObject)

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    return Attach(::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
}

BOOL CImageList::Create(CImageList* pImageList)
{
    return Attach(::ImageList_Duplicate(pImageList->m_hImageList));
}

BOOL CImageList::Attach(HIMAGELIST hImageList)
{
    if (!hImageList || m_hImageList) {
        return FALSE;
    }
    m_hImageList = hImageList;
    return TRUE;
}

HIMAGELIST CImageList::Detach()
{
    const HIMAGELIST handle = m_hImageList;
    m_hImageList = nullptr;
    return handle;
}

BOOL CImageList::DeleteImageList()
{
    const HIMAGELIST handle = Detach();
    return handle && ::ImageList_Destroy(handle);
}
