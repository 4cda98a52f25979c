// The objects of UI Automation, by calling their methods: the same tree as that of IAccessible, and patterns that act.
#include "access/AutomationObject.h"
#include "access/AutomationPatterns.h"
#include "access/CalendarWindowAccess.h"
#include "tests/access/AccessScene.h"
#include "tests/access/Reader.h"
#include "views/daygrid/MonthViewCtrl.h"
#include "views/daygrid/YearViewCtrl.h"

#include <gtest/gtest.h>

using namespace testsupport;
using namespace dayvane;
using accesstest::Spoken;
using gridtest::At;

namespace {

// Releases what it holds.
template <class Face>
class Held
{
public:
    explicit Held(Face* face = nullptr) : m_face(face) {}
    Held(Held&& other) : m_face(other.m_face) { other.m_face = nullptr; }
    Held& operator=(Held&& other)
    {
        std::swap(m_face, other.m_face);
        return *this;
    }
    ~Held()
    {
        if (m_face) {
            m_face->Release();
        }
    }
    explicit operator bool() const { return m_face != nullptr; }
    Face* operator->() const { return m_face; }
    Face** Out() { return &m_face; }

private:
    Face* m_face;
};
using Part = Held<IRawElementProviderFragment>;
using Simple = Held<IRawElementProviderSimple>;

template <class Face, class From>
Held<Face> As(const Held<From>& from, REFIID iid)
{
    Held<Face> face;
    from->QueryInterface(iid, reinterpret_cast<void**>(face.Out()));
    return face;
}

template <class From>
std::string NameOf(const Held<From>& part)
{
    VARIANT name = {};
    const Simple simple = As<IRawElementProviderSimple>(part, __uuidof(IRawElementProviderSimple));
    if (FAILED(simple->GetPropertyValue(uia::kName, &name)) || name.vt != VT_BSTR) {
        return "";
    }
    const std::string utf8 = Utf8FromWide(name.bstrVal);
    ::SysFreeString(name.bstrVal);
    return utf8;
}

Part Step(const Part& from, NavigateDirection way)
{
    Part part;
    from->Navigate(way, part.Out());
    return part;
}

template <class View>
class Automation : public AccessScene<View>
{
public:
    std::shared_ptr<CalendarWindowAccess> access;

    void SetUp() override
    {
        AccessScene<View>::SetUp();
        access = std::make_shared<CalendarWindowAccess>(*this->view);
    }
    void TearDown() override
    {
        access->Disconnect();
        AccessScene<View>::TearDown();
    }
    Part Root()
    {
        const Simple simple(MakeAutomationObject(access, AccessId()));
        return As<IRawElementProviderFragment>(simple, __uuidof(IRawElementProviderFragment));
    }
    // The item, searched for through the tree.
    Part Talk(const Part& in)
    {
        for (Part child = Step(in, NavigateDirection_FirstChild); child;) {
            if (NameOf(child).find("10:00 to 11:00 Talk") != std::string::npos) {
                return child;
            }
            if (Part found = Talk(child)) {
                return found;
            }
            child = Step(child, NavigateDirection_NextSibling);
        }
        return Part();
    }
    void ExpectSame(const Part& part, const Spoken& spoken)
    {
        EXPECT_EQ(spoken.Name(), NameOf(part));
        Part child = Step(part, NavigateDirection_FirstChild);
        std::string last;
        for (const Spoken& each : spoken.Children()) {
            if (each.Role() == ROLE_SYSTEM_WINDOW || each.Role() == ROLE_SYSTEM_CLIENT) {
                continue;
            }
            ASSERT_TRUE(child) << each.Name();
            EXPECT_EQ(NameOf(part), NameOf(Step(child, NavigateDirection_Parent)));
            if (!last.empty()) {
                EXPECT_EQ(last, NameOf(Step(child, NavigateDirection_PreviousSibling)));
            }
            UiaRect box;
            child->get_BoundingRectangle(&box);
            if (!each.Has(STATE_SYSTEM_OFFSCREEN)) {
                EXPECT_EQ(each.Place().left, static_cast<long>(box.left));
                EXPECT_EQ(each.Place().bottom, static_cast<long>(box.top + box.height));
            }
            ExpectSame(child, each);
            last = NameOf(child);
            child = Step(child, NavigateDirection_NextSibling);
        }
        EXPECT_FALSE(child);
        if (!last.empty()) {
            EXPECT_EQ(last, NameOf(Step(part, NavigateDirection_LastChild)));
        }
    }
};

using Views = testing::Types<CMonthViewCtrl, CYearViewCtrl, CWeekDayViewCtrl>;
TYPED_TEST_SUITE(Automation, Views);

TYPED_TEST(Automation, HasTheTreeOfTheView)
{
    this->ExpectSame(this->Root(), Spoken::OfWindow(*this->view));
    EXPECT_NE(0, ::SendMessage(*this->view, WM_GETOBJECT, 0, -25));
}

TYPED_TEST(Automation, IsAGridOfDaysOrMonths)
{
    const Part root = this->Root();
    const auto grid = As<uia::IGridProvider>(root, uia::kGridFace);
    int rows = 0, columns = 0;
    ASSERT_EQ(S_OK, grid->get_RowCount(&rows));
    ASSERT_EQ(S_OK, grid->get_ColumnCount(&columns));
    const bool isMonth = std::is_same_v<TypeParam, CMonthViewCtrl>;
    const bool isYear = std::is_same_v<TypeParam, CYearViewCtrl>;
    EXPECT_EQ(isMonth ? 6 : isYear ? 2 : 1, rows);
    EXPECT_EQ(isMonth ? 7 : isYear ? 6 : 5, columns);
    Simple cell;
    ASSERT_EQ(S_OK, grid->GetItem(rows - 1, columns - 1, cell.Out()));
    int row = 0, column = 0;
    const auto item = As<uia::IGridItemProvider>(cell, uia::kGridItemFace);
    item->get_Row(&row);
    item->get_Column(&column);
    EXPECT_EQ(rows - 1, row);
    EXPECT_EQ(columns - 1, column);
    EXPECT_EQ(E_INVALIDARG, grid->GetItem(rows, 0, Simple().Out()));
    SAFEARRAY* headers = nullptr;
    ASSERT_EQ(S_OK, As<uia::ITableProvider>(root, uia::kTableFace)->GetColumnHeaders(&headers));
    LONG last = -1;
    ::SafeArrayGetUBound(headers, 1, &last);
    EXPECT_EQ(isMonth ? 6 : -1, last);
    ::SafeArrayDestroy(headers);
}

TYPED_TEST(Automation, ActsAsTheMouseDoes)
{
    const Part talk = this->Talk(this->Root());
    ASSERT_TRUE(talk);
    ASSERT_EQ(S_OK, As<uia::ISelectionItemProvider>(talk, uia::kSelectionItemFace)->Select());
    EXPECT_EQ(0, this->view->GetCurSel());
    BOOL isSelected = FALSE;
    As<uia::ISelectionItemProvider>(talk, uia::kSelectionItemFace)->get_IsSelected(&isSelected);
    EXPECT_TRUE(isSelected);
    const auto value = As<uia::IValueProvider>(talk, uia::kValueFace);
    ASSERT_EQ(S_OK, value->SetValue(L"Speech"));
    ASSERT_EQ(1, this->parent.Count(CCN_IPE_ENDEDITITEM));
    EXPECT_EQ("Speech", this->parent.Log().back().editText);
    ASSERT_EQ(S_OK, As<uia::IInvokeProvider>(talk, uia::kInvokeFace)->Invoke());
    EXPECT_TRUE(PumpUntil([&] { return this->parent.Count(CCN_ITEMDBLCLICK) == 1; }));
    const auto scroll = As<uia::IScrollProvider>(this->Root(), uia::kScrollFace);
    COleDateTime before, after, last;
    this->view->GetViewRange(before, last);
    const int offset = this->view->GetVertScrollOffset();
    ASSERT_EQ(S_OK, scroll->Scroll(uia::kNone, uia::kLargeBack));
    this->view->GetViewRange(after, last);
    EXPECT_TRUE(after < before || this->view->GetVertScrollOffset() < offset);
    EXPECT_EQ(uia::kInvalid, scroll->Scroll(uia::kSmallOn, uia::kNone));
}

TYPED_TEST(Automation, OutlivesTheControl)
{
    const long before = AutomationObjectCount();
    {
        const Part root = this->Root();
        const Part talk = this->Talk(root);
        EXPECT_EQ(before + 2, AutomationObjectCount());
        this->access->Disconnect();
        for (const Part* part : {&root, &talk}) {
            UiaRect box;
            VARIANT any = {};
            EXPECT_EQ(uia::kNotAvailable, (*part)->get_BoundingRectangle(&box));
            EXPECT_FALSE(Step(*part, NavigateDirection_FirstChild));
            EXPECT_EQ(uia::kNotAvailable, As<uia::IInvokeProvider>(*part, uia::kInvokeFace)->Invoke());
            const Simple simple = As<IRawElementProviderSimple>(*part, __uuidof(IRawElementProviderSimple));
            EXPECT_EQ(uia::kNotAvailable, simple->GetPropertyValue(uia::kName, &any));
        }
    }
    EXPECT_EQ(before, AutomationObjectCount());
}

} // namespace
