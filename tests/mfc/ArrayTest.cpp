// CArray: bounds, growth, and what remains when something fails.
#include "BaseTesting.h"

#include <afxcoll.h>
#include <afxtempl.h>

#include <random>
#include <string>
#include <vector>

#ifndef _WIN32
// A sanitizer's allocator is to fail here as the plain one does, not to end the program.
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}
#endif

namespace {
using Texts = CArray<CString, const CString&>;

void ExpectSame(const Texts& array, const std::vector<std::string>& model)
{
    ASSERT_EQ(array.GetSize(), static_cast<INT_PTR>(model.size()));
    for (INT_PTR i = 0; i < array.GetSize(); ++i) {
        ASSERT_STREQ(array[i], model[static_cast<size_t>(i)].c_str()) << "at " << i;
    }
}

// Two arrays and what they should hold.
class RandomArrays
{
public:
    void Step(int step)
    {
        const INT_PTR size = array.GetSize();
        const INT_PTR where = size > 0 ? static_cast<INT_PTR>(m_random() % static_cast<size_t>(size)) : 0;
        const auto position = model.begin() + where;
        const std::string text = std::to_string(step);
        switch (m_random() % 11) {
        case 0:
        case 1:
            EXPECT_EQ(array.Add(text.c_str()), size);
            model.push_back(text);
            break;
        case 2:
            array.InsertAt(where, text.c_str(), 3);
            model.insert(position, 3, text);
            break;
        case 3:
            array.InsertAt(size + 2, text.c_str());
            model.resize(model.size() + 2);
            model.push_back(text);
            break;
        case 4:
            array.InsertAt(where, &other);
            model.insert(position, otherModel.begin(), otherModel.end());
            break;
        case 5:
            array.SetAtGrow(where + 3, text.c_str());
            model.resize(std::max<size_t>(model.size(), static_cast<size_t>(where) + 4));
            model[static_cast<size_t>(where) + 3] = text;
            break;
        case 6:
        case 7: {
            const INT_PTR count = std::min<INT_PTR>(size - where, 4);
            array.RemoveAt(where, count);
            model.erase(position, position + count);
            break;
        }
        case 8:
            array.FreeExtra();
            break;
        case 9:
            if (size > 30) {
                array.SetSize(10, step % 3);
                model.resize(10);
            }
            other.Copy(array);
            other.Append(array);
            otherModel = model;
            otherModel.insert(otherModel.end(), model.begin(), model.end());
            break;
        default:
            if (size > 0) { // elements of the array itself as arguments
                array.Add(array[where]);
                model.push_back(std::string(model[static_cast<size_t>(where)]));
                array.InsertAt(0, array[size]);
                model.insert(model.begin(), std::string(model.back()));
            }
            break;
        }
    }

    Texts array, other;
    std::vector<std::string> model, otherModel;

private:
    std::mt19937 m_random{1};
};

TEST(Array, BehavesAsAListUnderRandomOperations)
{
    RandomArrays arrays;
    for (int step = 0; step < 4000; ++step) {
        arrays.Step(step);
        ExpectSame(arrays.array, arrays.model);
        if (HasFatalFailure()) {
            FAIL() << "step " << step;
        }
    }
}

TEST(Array, RefusesWhatLiesOutside)
{
    Texts array, empty;
    array.SetSize(3);
    const Texts& fixed = array;
    const INT_PTR outside[] = {-1, 3, 4, INTPTR_MIN, INTPTR_MAX};
    for (const INT_PTR index : outside) {
        EXPECT_TRUE(Throws<CInvalidArgException>([&] { array[index] = "x"; })) << index;
        EXPECT_TRUE(Throws<CInvalidArgException>([&] { fixed.GetAt(index).GetLength(); })) << index;
        EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.ElementAt(index).Empty(); })) << index;
        EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.SetAt(index, "x"); })) << index;
        EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.RemoveAt(index); })) << index;
    }
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.RemoveAt(1, 3); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.RemoveAt(1, INTPTR_MAX); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.RemoveAt(1, -1); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.SetAtGrow(-1, "x"); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.InsertAt(-1, "x"); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.InsertAt(0, "x", 0); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.InsertAt(-1, &empty); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.InsertAt(0, &array); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.Append(array); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([&] { array.SetSize(-1); }));
    EXPECT_EQ(array.GetSize(), 3);
}

// Counts its objects; its constructor can be made to fail.
struct Counted
{
    static inline int living = 0;
    static inline int failAfter = -1;
    int value = 7;

    Counted()
    {
        if (failAfter >= 0 && failAfter-- == 0) {
            AfxThrowUserException();
        }
        ++living;
    }
    Counted(const Counted& other) : value(other.value) { ++living; }
    Counted(Counted&& other) noexcept : value(other.value) { ++living; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --living; }
};

TEST(Array, ConstructsWhenItGrowsAndDestroysWhenItShrinks)
{
    {
        CArray<Counted, const Counted&> array;
        array.SetSize(10);
        array[2].value = 1;
        EXPECT_EQ(Counted::living, 10);
        array.SetSize(3);
        EXPECT_EQ(Counted::living, 3);
        array.SetSize(5);
        EXPECT_EQ(array[2].value, 1);
        EXPECT_EQ(array[4].value, 7) << "what grows anew is new";

        Counted::failAfter = 2; // the third of the new ones
        EXPECT_TRUE(Throws<CUserException>([&] { array.SetSize(100); }));
        Counted::failAfter = -1;
        EXPECT_EQ(array.GetSize(), 5);
        EXPECT_EQ(Counted::living, 5);
        EXPECT_EQ(array[2].value, 1);
    }
    EXPECT_EQ(Counted::living, 0);
}

struct Huge
{
    CString text;
    char room[0x10000];
};

TEST(Array, KeepsItsElementsWhenMemoryLacks)
{
    CArray<Huge, const Huge&> array;
    array.SetSize(2);
    array[1].text = "kept";
    const Huge* const data = array.GetData();
    EXPECT_TRUE(Throws<CMemoryException>([&] { array.SetSize(INT32_MAX); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { array.SetSize(INTPTR_MAX); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { array.SetSize(INTPTR_MAX / 2 + 1); })) << "0 bytes when multiplied";
    EXPECT_TRUE(Throws<CMemoryException>([&] { array.SetAtGrow(INTPTR_MAX, array[0]); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { array.InsertAt(0, array[1], INTPTR_MAX); }));
    EXPECT_EQ(array.GetSize(), 2);
    EXPECT_EQ(array.GetData(), data);
    EXPECT_STREQ(array[1].text, "kept");
}

// The layout of the time grids: an array of arrays.
TEST(Array, MovesArraysThatAreElements)
{
    struct Row : CPtrArray
    {
        int weight = 1;
    };
    CArray<Row, Row> rows;
    int item = 0;
    rows.SetSize(2);
    rows[1].Add(&item);
    const void* const* data = rows[1].GetData();
    rows.SetSize(500);
    EXPECT_EQ(rows[1].GetData(), data) << "moved, not copied";
    EXPECT_EQ(rows[1][0], &item);
    EXPECT_TRUE(rows[499].IsEmpty());
    EXPECT_EQ(rows[499].weight, 1);
}
} // namespace
