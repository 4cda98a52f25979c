// CArray: a growable array.
//
// An index outside 0..GetUpperBound() raises CInvalidArgException in every build. Elements are constructed by default
// when the array grows and destroyed when it shrinks; growth moves them. When memory lacks, CMemoryException is raised
// and the array keeps its elements, size and capacity. A reference to an element of the array itself may be added to
// it or inserted into it.
#pragma once

#include <afx.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

// Stores or loads a run of elements. This general form copies bytes, so it serves plain records only; a class with
// members of its own needs a specialisation.
template <class TYPE>
void AFXAPI SerializeElements(CArchive& ar, TYPE* pElements, INT_PTR nCount)
{
    if constexpr (std::is_trivially_copyable_v<TYPE>) {
        for (INT_PTR i = 0; i < nCount; ++i) {
            if (ar.IsStoring()) {
                ar.Write(pElements + i, sizeof(TYPE));
            } else if (ar.Read(pElements + i, sizeof(TYPE)) != sizeof(TYPE)) {
                AfxThrowArchiveException(CArchiveException::endOfFile);
            }
        }
    } else {
        AfxThrowNotSupportedException();
    }
}

template <>
inline void AFXAPI SerializeElements<CString>(CArchive& ar, CString* pElements, INT_PTR nCount)
{
    for (INT_PTR i = 0; i < nCount; ++i) {
        ar.IsStoring() ? ar << pElements[i] : ar >> pElements[i];
    }
}

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject
{
public:
    CArray() = default;
    ~CArray() override { FreeAll(); }
    // Not copyable (Copy does that); movable, so that arrays can be elements of arrays.
    CArray(CArray&& other) noexcept { Swap(other); }
    CArray& operator=(CArray&& other) noexcept
    {
        Swap(other);
        return *this;
    }

    INT_PTR GetSize() const { return m_nSize; }
    INT_PTR GetCount() const { return m_nSize; }
    INT_PTR GetUpperBound() const { return m_nSize - 1; }
    BOOL IsEmpty() const { return m_nSize == 0; }

    // nGrowBy: the least number of elements by which the capacity grows from now on; -1 leaves it as it is, 0 means one
    // eighth of the size, at least 4 and at most 1024.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1);
    void FreeExtra();
    void RemoveAll() { SetSize(0); }

    const TYPE& GetAt(INT_PTR nIndex) const { return m_pData[Checked(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_pData[Checked(nIndex)]; }
    const TYPE& ElementAt(INT_PTR nIndex) const { return m_pData[Checked(nIndex)]; }
    TYPE& ElementAt(INT_PTR nIndex) { return m_pData[Checked(nIndex)]; }
    const TYPE& operator[](INT_PTR nIndex) const { return m_pData[Checked(nIndex)]; }
    TYPE& operator[](INT_PTR nIndex) { return m_pData[Checked(nIndex)]; }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_pData[Checked(nIndex)] = newElement; }
    // The elements, or null when there never was one; valid until the array changes its size.
    const TYPE* GetData() const { return m_pData; }
    TYPE* GetData() { return m_pData; }

    // Grows the array when the index is at or beyond the end; a negative index raises CInvalidArgException.
    void SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement);
    // The index of the new element.
    INT_PTR Add(ARG_TYPE newElement)
    {
        SetAtGrow(m_nSize, newElement);
        return m_nSize - 1;
    }
    // The index of the first appended element. An array is not appended to itself: CInvalidArgException.
    INT_PTR Append(const CArray& src);
    void Copy(const CArray& src);

    // Beyond the end the array grows up to the index first. A negative index, or no element: CInvalidArgException.
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount = 1);
    // Inserts all elements of another array.
    void InsertAt(INT_PTR nStartIndex, CArray* pNewArray);
    // A range that does not lie in the array raises CInvalidArgException.
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1);

    // The count (CArchive::WriteCount) and the elements.
    void Serialize(CArchive& ar) override;

private:
    static_assert(alignof(TYPE) <= alignof(std::max_align_t), "elements come from malloc");

    INT_PTR Checked(INT_PTR nIndex) const
    {
        if (nIndex < 0 || nIndex >= m_nSize) {
            AfxThrowInvalidArgException();
        }
        return nIndex;
    }
    INT_PTR GrownCapacity(INT_PTR nNewSize) const;
    void SetCapacity(INT_PTR nCapacity);
    void OpenGap(INT_PTR nIndex, INT_PTR nCount);
    void FreeAll() noexcept;
    void Swap(CArray& other) noexcept
    {
        std::swap(m_pData, other.m_pData);
        std::swap(m_nSize, other.m_nSize);
        std::swap(m_nMaxSize, other.m_nMaxSize);
        std::swap(m_nGrowBy, other.m_nGrowBy);
    }

    TYPE* m_pData = nullptr;
    INT_PTR m_nSize = 0;
    INT_PTR m_nMaxSize = 0;
    INT_PTR m_nGrowBy = 0;
};

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::GrownCapacity(INT_PTR nNewSize) const
{
    if (!m_pData) {
        return std::max(nNewSize, m_nGrowBy);
    }
    const INT_PTR nStep = m_nGrowBy != 0 ? m_nGrowBy : std::clamp<INT_PTR>(m_nSize / 8, 4, 1024);
    return nNewSize - m_nMaxSize < nStep && nStep <= INTPTR_MAX - m_nMaxSize ? m_nMaxSize + nStep : nNewSize;
}

// Moves the elements to a block of that capacity, which is at least the size and not 0.
template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetCapacity(INT_PTR nCapacity)
{
    void* pMemory = nullptr;
    if (static_cast<size_t>(nCapacity) <= static_cast<size_t>(PTRDIFF_MAX) / sizeof(TYPE)) {
        pMemory = std::malloc(static_cast<size_t>(nCapacity) * sizeof(TYPE));
    }
    if (!pMemory) {
        AfxThrowMemoryException();
    }
    TYPE* pNew = static_cast<TYPE*>(pMemory);
    if constexpr (std::is_nothrow_move_constructible_v<TYPE> || !std::is_copy_constructible_v<TYPE>) {
        for (INT_PTR i = 0; i < m_nSize; ++i) { // in one pass: large arrays come through the cache once
            new (static_cast<void*>(pNew + i)) TYPE(std::move(m_pData[i]));
            m_pData[i].~TYPE();
        }
    } else {
        try {
            std::uninitialized_copy(m_pData, m_pData + m_nSize, pNew);
        } catch (...) {
            std::free(pMemory);
            throw;
        }
        std::destroy(m_pData, m_pData + m_nSize);
    }
    std::free(m_pData);
    m_pData = pNew;
    m_nMaxSize = nCapacity;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::FreeAll() noexcept
{
    std::destroy(m_pData, m_pData + m_nSize);
    std::free(m_pData);
    m_pData = nullptr;
    m_nSize = m_nMaxSize = 0;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetSize(INT_PTR nNewSize, INT_PTR nGrowBy)
{
    if (nNewSize < 0) {
        AfxThrowInvalidArgException();
    }
    if (nGrowBy >= 0) {
        m_nGrowBy = nGrowBy;
    }
    if (nNewSize == 0) {
        FreeAll();
        return;
    }
    if (nNewSize > m_nMaxSize) {
        SetCapacity(GrownCapacity(nNewSize));
    }
    if (nNewSize > m_nSize) {
        std::uninitialized_value_construct(m_pData + m_nSize, m_pData + nNewSize);
    } else {
        std::destroy(m_pData + nNewSize, m_pData + m_nSize);
    }
    m_nSize = nNewSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::FreeExtra()
{
    if (m_nSize == 0) {
        FreeAll();
    } else if (m_nSize != m_nMaxSize) {
        SetCapacity(m_nSize);
    }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetAtGrow(INT_PTR nIndex, ARG_TYPE newElement)
{
    if (nIndex < 0) {
        AfxThrowInvalidArgException();
    }
    if (nIndex == INTPTR_MAX) {
        AfxThrowMemoryException();
    }
    if (nIndex < m_nMaxSize) {
        if (nIndex >= m_nSize) {
            SetSize(nIndex + 1);
        }
        m_pData[nIndex] = newElement;
    } else {
        TYPE element(newElement); // it may lie in the block that is about to move
        SetSize(nIndex + 1);
        m_pData[nIndex] = std::move(element);
    }
}

template <class TYPE, class ARG_TYPE>
INT_PTR CArray<TYPE, ARG_TYPE>::Append(const CArray& src)
{
    if (this == &src) {
        AfxThrowInvalidArgException();
    }
    const INT_PTR nOldSize = m_nSize;
    SetSize(m_nSize + src.m_nSize);
    std::copy(src.m_pData, src.m_pData + src.m_nSize, m_pData + nOldSize);
    return nOldSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Copy(const CArray& src)
{
    if (this != &src) {
        SetSize(src.m_nSize);
        std::copy(src.m_pData, src.m_pData + src.m_nSize, m_pData);
    }
}

// Makes room for elements before the one at the index; what stands in the room is unspecified.
template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::OpenGap(INT_PTR nIndex, INT_PTR nCount)
{
    const INT_PTR nOldSize = m_nSize;
    const INT_PTR nStart = std::max(nIndex, m_nSize);
    if (nCount > INTPTR_MAX - nStart) {
        AfxThrowMemoryException();
    }
    SetSize(nStart + nCount);
    if (nIndex < nOldSize) {
        std::move_backward(m_pData + nIndex, m_pData + nOldSize, m_pData + m_nSize);
    }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR nIndex, ARG_TYPE newElement, INT_PTR nCount)
{
    if (nIndex < 0 || nCount <= 0) {
        AfxThrowInvalidArgException();
    }
    const TYPE element(newElement); // it may lie in the part that is about to move
    OpenGap(nIndex, nCount);
    std::fill_n(m_pData + nIndex, nCount, element);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(INT_PTR nStartIndex, CArray* pNewArray)
{
    if (!pNewArray || pNewArray == this || nStartIndex < 0) {
        AfxThrowInvalidArgException();
    }
    if (pNewArray->m_nSize > 0) {
        OpenGap(nStartIndex, pNewArray->m_nSize);
        std::copy(pNewArray->m_pData, pNewArray->m_pData + pNewArray->m_nSize, m_pData + nStartIndex);
    }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::RemoveAt(INT_PTR nIndex, INT_PTR nCount)
{
    if (nIndex < 0 || nCount < 0 || nIndex > m_nSize || nCount > m_nSize - nIndex) {
        AfxThrowInvalidArgException();
    }
    std::move(m_pData + nIndex + nCount, m_pData + m_nSize, m_pData + nIndex);
    std::destroy(m_pData + m_nSize - nCount, m_pData + m_nSize);
    m_nSize -= nCount;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Serialize(CArchive& ar)
{
    if (ar.IsStoring()) {
        ar.WriteCount(static_cast<DWORD>(m_nSize));
    } else {
        SetSize(static_cast<INT_PTR>(ar.ReadCount()));
    }
    SerializeElements<TYPE>(ar, m_pData, m_nSize);
}

#include <afxcoll.h>
