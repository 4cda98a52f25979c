// What the objects of both interfaces for programs that read aloud share: their references, and the part that they
// stand for.
#pragma once

#include "AccessWindow.h"

#include <atomic>

namespace dayvane {

// An object on the heap that begins with one reference and ends with the last.
template <class... Interfaces>
class Referenced : public Interfaces...
{
public:
    STDMETHODIMP_(ULONG) AddRef() final { return static_cast<ULONG>(++m_references); }
    STDMETHODIMP_(ULONG) Release() final
    {
        const long left = --m_references;
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }

protected:
    virtual ~Referenced() = default;

private:
    std::atomic<long> m_references{1};
};

// Where a part is now.
struct PartPlace
{
    std::shared_ptr<AccessWindow> window;
    const AccessTree* tree = nullptr;
    int node = kNoNode;
    const AccessNode& Node() const { return tree->At(node); }
};

// False when the window is gone, or in it what the part stood for.
inline bool FindPart(const std::weak_ptr<AccessWindow>& window, const AccessId& id, PartPlace& place)
{
    place.window = window.lock();
    if (!place.window || !place.window->IsConnected()) {
        return false;
    }
    place.tree = &place.window->Tree();
    place.node = place.tree->Find(id);
    return place.node != kNoNode;
}

} // namespace dayvane
