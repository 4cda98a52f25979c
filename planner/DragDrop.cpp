#include "planner/DragDrop.h"

#include "planner/WideText.h"

#include <shellapi.h>
#include <shlobj.h>

namespace planner {

namespace {

FORMATETC FormatOf(UINT format)
{
    return {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
}

// The count of references of an object that deletes itself.
template <class Interface>
class Counted : public Interface
{
public:
    Counted() = default;
    virtual ~Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(::InterlockedIncrement(&m_count)); }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const LONG left = ::InterlockedDecrement(&m_count);
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override
    {
        const bool isKnown = ::IsEqualIID(riid, IID_IUnknown) || ::IsEqualIID(riid, __uuidof(Interface));
        *ppv = isKnown ? static_cast<Interface*>(this) : nullptr;
        if (isKnown) {
            AddRef();
        }
        return isKnown ? S_OK : E_NOINTERFACE;
    }

private:
    LONG m_count = 1;
};

// ---- Data

class ItemData : public Counted<IDataObject>
{
public:
    ItemData(const std::string& calendar, const std::string& text) : m_calendar(calendar), m_text(Wide(text)) {}

    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* pFormat) override
    {
        const bool isOffered = pFormat->cfFormat == CalendarFormat() || pFormat->cfFormat == CF_UNICODETEXT;
        return isOffered && (pFormat->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_FORMATETC;
    }
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* pFormat, STGMEDIUM* pMedium) override
    {
        if (QueryGetData(pFormat) != S_OK) {
            return DV_E_FORMATETC;
        }
        const bool isCalendar = pFormat->cfFormat == CalendarFormat();
        *pMedium = STGMEDIUM();
        pMedium->tymed = TYMED_HGLOBAL;
        pMedium->hGlobal = isCalendar ? GlobalOf(m_calendar.data(), m_calendar.size())
                                      : GlobalOf(m_text.data(), m_text.size() * sizeof(wchar_t));
        return pMedium->hGlobal ? S_OK : E_OUTOFMEMORY;
    }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** ppFormats) override
    {
        const FORMATETC formats[] = {FormatOf(CalendarFormat()), FormatOf(CF_UNICODETEXT)};
        return direction == DATADIR_GET ? ::SHCreateStdEnumFmtEtc(2, formats, ppFormats) : E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC* pOut) override
    {
        pOut->ptd = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override
    {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

private:
    const std::string m_calendar;
    const std::wstring m_text;
};

bool Has(IDataObject& data, UINT format)
{
    FORMATETC wanted = FormatOf(format);
    return data.QueryGetData(&wanted) == S_OK;
}

template <class Use>
void WithBlock(IDataObject& data, UINT format, const Use& use)
{
    FORMATETC wanted = FormatOf(format);
    STGMEDIUM medium = {};
    if (data.GetData(&wanted, &medium) == S_OK) {
        if (medium.tymed == TYMED_HGLOBAL) {
            use(medium.hGlobal);
        }
        ::ReleaseStgMedium(&medium);
    }
}

std::vector<std::string> FilesOf(HGLOBAL block)
{
    const HDROP drop = static_cast<HDROP>(block);
    std::vector<std::string> files;
    const UINT count = ::DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring path(::DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        ::DragQueryFileW(drop, i, &path[0], static_cast<UINT>(path.size()));
        files.push_back(Utf8Of(path.c_str()));
    }
    return files;
}

// ---- Source and target

class ItemSource : public Counted<IDropSource>
{
public:
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL isEscape, DWORD keys) override
    {
        return isEscape ? DRAGDROP_S_CANCEL : (keys & MK_LBUTTON) == 0 ? DRAGDROP_S_DROP : S_OK;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
};

class WindowTarget : public Counted<IDropTarget>
{
public:
    WindowTarget(DropPlace::Test test, DropPlace::Take take) : m_test(std::move(test)), m_take(std::move(take)) {}
    void Forget() { m_test = nullptr; }

    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* pData, DWORD keys, POINTL point, DWORD* pEffect) override
    {
        m_isDroppable = pData && IsDroppable(*pData);
        return DragOver(keys, point, pEffect);
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL point, DWORD* pEffect) override
    {
        const bool isTaken = m_isDroppable && m_test && m_test(CPoint(point.x, point.y));
        *pEffect = isTaken ? *pEffect & DROPEFFECT_COPY : DROPEFFECT_NONE;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* pData, DWORD keys, POINTL point, DWORD* pEffect) override
    {
        DragEnter(pData, keys, point, pEffect);
        const DroppedData dropped = *pEffect != DROPEFFECT_NONE ? TakeDropped(*pData) : DroppedData();
        if (dropped.IsEmpty()) {
            *pEffect = DROPEFFECT_NONE;
        } else {
            m_take(dropped, CPoint(point.x, point.y));
        }
        return S_OK;
    }

private:
    DropPlace::Test m_test;
    DropPlace::Take m_take;
    bool m_isDroppable = false;
};

} // namespace

bool IsDroppable(IDataObject& data)
{
    return Has(data, CalendarFormat()) || Has(data, CF_HDROP) || Has(data, CF_UNICODETEXT);
}

DroppedData TakeDropped(IDataObject& data)
{
    DroppedData dropped;
    if (Has(data, CalendarFormat())) {
        WithBlock(data, CalendarFormat(), [&](HGLOBAL block) { dropped.text.text = BytesOfGlobal(block); });
        dropped.text.isCalendar = true;
    } else if (Has(data, CF_HDROP)) {
        WithBlock(data, CF_HDROP, [&](HGLOBAL block) { dropped.files = FilesOf(block); });
    } else {
        WithBlock(data, CF_UNICODETEXT, [&](HGLOBAL block) { dropped.text.text = WideTextOfGlobal(block); });
    }
    return dropped;
}

IDataObject* NewItemData(const std::string& calendar, const std::string& text)
{
    return new ItemData(calendar, text);
}

bool DragItems(const std::string& calendar, const std::string& text)
{
    IDataObject* const data = NewItemData(calendar, text);
    IDropSource* const source = new ItemSource;
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT result = ::DoDragDrop(data, source, DROPEFFECT_COPY, &effect);
    source->Release();
    data->Release();
    return result == DRAGDROP_S_DROP && effect != DROPEFFECT_NONE;
}

DropPlace::DropPlace(HWND window, Test test, Take take)
    : m_window(window), m_target(new WindowTarget(std::move(test), std::move(take)))
{
    ::OleInitialize(nullptr);
    ::RegisterDragDrop(m_window, m_target);
}

DropPlace::~DropPlace()
{
    ::RevokeDragDrop(m_window);
    static_cast<WindowTarget*>(m_target)->Forget(); // somebody else may still hold it
    m_target->Release();
    ::OleUninitialize();
}

} // namespace planner
