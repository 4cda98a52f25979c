#include "StressScript.h"

#include <cstdio>
#include <cstdlib>

namespace stress {
namespace {

// A well mixed number for every counter value (the finalizer of splitmix64).
std::uint64_t Mix(std::uint64_t x)
{
    x += 0x9E3779B97F4A7C15ull;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
    return x ^ (x >> 31);
}

class Dice
{
public:
    Dice(std::uint64_t seed, std::int64_t index) : m_state(Mix(seed) ^ Mix(static_cast<std::uint64_t>(index))) {}
    int operator()(int sides)
    {
        m_state = Mix(m_state);
        return static_cast<int>(m_state % static_cast<std::uint64_t>(sides));
    }

private:
    std::uint64_t m_state;
};

struct KindRow
{
    EventKind kind;
    const char* name;
    int weight; // share among all
};
constexpr KindRow kKinds[] = {
    {EventKind::Key, "key", 140},           {EventKind::MouseMove, "move", 220},
    {EventKind::LeftDown, "down", 90},      {EventKind::LeftUp, "up", 80},
    {EventKind::DoubleClick, "double", 10}, {EventKind::RightDown, "right", 10},
    {EventKind::Wheel, "wheel", 20},        {EventKind::ScrollCode, "scroll", 60},
    {EventKind::Size, "size", 25},          {EventKind::AddItem, "add", 60},
    {EventKind::InsertItem, "insert", 10},  {EventKind::SetItem, "set", 30},
    {EventKind::DeleteItem, "delete", 45},  {EventKind::DeleteAll, "delete-all", 1},
    {EventKind::SetCurSel, "select", 20},   {EventKind::SetDate, "date", 20},
    {EventKind::FirstDay, "first-day", 5},  {EventKind::Option, "option", 15},
    {EventKind::BeginEdit, "edit", 15},     {EventKind::EndEdit, "end-edit", 15},
    {EventKind::Type, "type", 20},          {EventKind::Hostile, "hostile", 20},
    {EventKind::LoseCapture, "lose", 6},    {EventKind::CancelMode, "cancel", 6},
    {EventKind::Focus, "focus", 8},         {EventKind::Timer, "timer", 10},
    {EventKind::ContextMenu, "menu", 6},    {EventKind::Refresh, "refresh", 20},
    {EventKind::Paint, "paint", 30},        {EventKind::Sort, "tab", 15},
    {EventKind::Recreate, "recreate", 1},   {EventKind::Client, "client", 15},
};
static_assert(sizeof(kKinds) / sizeof(kKinds[0]) == static_cast<size_t>(EventKind::Count), "a row for each kind");

constexpr int kKeys[] = {0x25, 0x26, 0x27, 0x28, 0x09, 0x0D, 0x1B, 0x20,
                         0x21, 0x22, 0x23, 0x24, 0xE5, 0x41, 0x75, 0x2E};
constexpr int kEndKeys[] = {0x0D, 0x1B, 0x09};

const KindRow& RowOf(int roll)
{
    for (const KindRow& row : kKinds) {
        if (roll < row.weight) {
            return row;
        }
        roll -= row.weight;
    }
    return kKinds[0];
}

int TotalWeight()
{
    int total = 0;
    for (const KindRow& row : kKinds) {
        total += row.weight;
    }
    return total;
}

} // namespace

Event EventOf(std::uint64_t seed, std::int64_t index)
{
    static const int total = TotalWeight();
    Dice dice(seed, index);
    Event event = {index, RowOf(dice(total)).kind, 0, 0, 0};
    switch (event.kind) {
    case EventKind::Key:
        event.a = kKeys[dice(sizeof(kKeys) / sizeof(kKeys[0]))];
        event.b = dice(8) < 4 ? 0 : 1 + dice(3);
        break;
    case EventKind::EndEdit:
        event.a = kEndKeys[dice(3)];
        break;
    case EventKind::Wheel:
        event.a = (dice(7) - 3) * 60;
        break;
    case EventKind::ScrollCode:
        event.a = dice(10); // the codes end at 8
        event.b = dice(20) == 0 ? dice(100000) - 50000 : dice(60);
        break;
    case EventKind::Size:
        event.a = dice(4) == 0 ? dice(30) : 200 + dice(700);
        event.b = dice(4) == 0 ? dice(30) : 150 + dice(600);
        break;
    case EventKind::InsertItem:
        event.a = dice(1 << 20);
        event.b = dice(60) - 2;
        break;
    case EventKind::SetItem:
    case EventKind::DeleteItem:
    case EventKind::SetCurSel:
        event.a = dice(1 << 20);
        event.b = dice(50) - 2;
        break;
    default: // points and numbers; points also outside the window
        event.a = dice(1000) - 40;
        event.b = dice(800) - 40;
        event.c = dice(2);
        break;
    }
    return event;
}

std::string TextOf(const Event& event)
{
    const char* name = "?";
    for (const KindRow& row : kKinds) {
        if (row.kind == event.kind) {
            name = row.name;
        }
    }
    char text[100];
    std::snprintf(text, sizeof(text), "%6d  %-10s %d %d %d", static_cast<int>(event.index), name, event.a, event.b,
                  event.c);
    return text;
}

std::string RangesOf(const std::vector<std::int64_t>& indices)
{
    std::string text;
    for (size_t i = 0; i < indices.size();) {
        size_t end = i;
        while (end + 1 < indices.size() && indices[end + 1] == indices[end] + 1) {
            ++end;
        }
        text += (text.empty() ? "" : ",") + std::to_string(indices[i]);
        if (end > i) {
            text += "-" + std::to_string(indices[end]);
        }
        i = end + 1;
    }
    return text;
}

std::vector<std::int64_t> IndicesOf(const std::string& ranges)
{
    std::vector<std::int64_t> indices;
    const char* at = ranges.c_str();
    while (*at) {
        char* after = nullptr;
        const std::int64_t first = std::strtoll(at, &after, 10);
        std::int64_t last = first;
        if (*after == '-') {
            last = std::strtoll(after + 1, &after, 10);
        }
        for (std::int64_t index = first; index <= last; ++index) {
            indices.push_back(index);
        }
        if (after == at) {
            break; // not a number
        }
        at = *after == ',' ? after + 1 : after;
    }
    return indices;
}

} // namespace stress
