// What is stored comes back, damaged input is reported; and the objects and exceptions that archives need.
#include "BaseTesting.h"

#include <afxcoll.h>
#include <afxdisp.h>

#include <cstring>
#include <limits>
#include <vector>

namespace {
struct Row
{
    COLORREF colors[2];
    bool operator==(const Row& row) const { return colors[0] == row.colors[0] && colors[1] == row.colors[1]; }
};

// One of everything.
struct Content
{
    int number = 0;
    WORD word = 0;
    bool flag = false;
    double real = 0;
    LONGLONG wide = 0;
    CString text, longText;
    COleDateTime date, none;
    COleDateTimeSpan span;
    CArray<Row, const Row&> rows;
    CStringArray texts;

    void Fill()
    {
        number = -5, word = 0xfffe, flag = true, real = 0.1, wide = std::numeric_limits<LONGLONG>::min();
        text = "表";
        longText = CString('x', 300);
        date = COleDateTime(2010, 3, 10, 9, 30, 0);
        none.SetStatus(COleDateTime::null);
        span = COleDateTimeSpan(-1.5);
        rows.Add(Row{{1, 2}});
        rows.Add(Row{{3, 0xffffff}});
        texts.Add("a");
        texts.Add("");
    }
    void Serialize(CArchive& ar)
    {
        rows.Serialize(ar);
        texts.Serialize(ar);
        if (ar.IsStoring()) {
            ar << number << word << flag << real << wide << text << longText << date << none << span;
        } else {
            ar >> number >> word >> flag >> real >> wide >> text >> longText >> date >> none >> span;
        }
    }
};

std::vector<BYTE> Stored(Content& content)
{
    CMemFile file;
    CArchive ar(&file, CArchive::store);
    content.Serialize(ar);
    ar.Close();
    std::vector<BYTE> bytes(static_cast<size_t>(file.GetLength()));
    file.SeekToBegin();
    EXPECT_EQ(file.Read(bytes.data(), static_cast<UINT>(bytes.size()) + 9), bytes.size());
    return bytes;
}

TEST(Archive, ReturnsWhatItStored)
{
    Content content, loaded;
    content.Fill();
    std::vector<BYTE> bytes = Stored(content);
    CMemFile file(bytes.data(), static_cast<UINT>(bytes.size()));
    CArchive ar(&file, CArchive::load);
    loaded.Serialize(ar);
    EXPECT_EQ(file.GetPosition(), bytes.size());
    EXPECT_TRUE(loaded.number == -5 && loaded.word == 0xfffe && loaded.flag && loaded.real == 0.1);
    EXPECT_EQ(loaded.wide, content.wide);
    EXPECT_STREQ(loaded.text, "表");
    EXPECT_TRUE(loaded.longText == content.longText);
    EXPECT_TRUE(loaded.date == content.date && loaded.none == content.none && loaded.span == content.span);
    ASSERT_TRUE(loaded.rows.GetSize() == 2 && loaded.texts.GetSize() == 2);
    EXPECT_TRUE(loaded.rows[0] == content.rows[0] && loaded.rows[1] == content.rows[1]);
    EXPECT_STREQ(loaded.texts[0], "a");
}

TEST(Archive, ReportsEveryTruncation)
{
    Content content;
    content.Fill();
    std::vector<BYTE> bytes = Stored(content);
    for (size_t size = 0; size < bytes.size(); ++size) {
        Content loaded;
        CMemFile file(bytes.data(), static_cast<UINT>(size));
        CArchive ar(&file, CArchive::load);
        ASSERT_EQ(ArchiveCause([&] { loaded.Serialize(ar); }), CArchiveException::endOfFile) << size << " bytes";
    }
}

// The widths are part of the file format that MFC programs share.
TEST(Archive, StoresLengthsInTheFewestBytes)
{
    struct
    {
        int length;
        ULONGLONG prefix;
    } const texts[] = {{0, 1}, {254, 1}, {255, 3}, {0xfffe, 3}, {0xffff, 7}, {70000, 7}};
    for (const auto& c : texts) {
        CMemFile file;
        CArchive out(&file, CArchive::store), in(&file, CArchive::load);
        out << CString('x', c.length);
        EXPECT_EQ(file.GetLength(), c.prefix + static_cast<ULONGLONG>(c.length));
        file.SeekToBegin();
        CString text("other");
        in >> text;
        EXPECT_EQ(text.GetLength(), c.length);
    }
    for (const DWORD count : {0u, 0xfffeu, 0xffffu, 0xffffffffu}) {
        CMemFile file;
        CArchive out(&file, CArchive::store), in(&file, CArchive::load);
        out.WriteCount(count);
        EXPECT_EQ(file.GetLength(), count < 0xffff ? 2u : 6u);
        file.SeekToBegin();
        EXPECT_EQ(in.ReadCount(), count);
    }
}

TEST(Archive, RefusesDamageAndTheWrongDirection)
{
    BYTE damaged[] = {0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x7f, 'x'};
    CMemFile file(damaged, sizeof damaged);
    CArchive in(&file, CArchive::load), out(&file, CArchive::store);
    CString text("kept");
    EXPECT_EQ(ArchiveCause([&] { in >> text; }), CArchiveException::endOfFile) << "a length of two thousand million";
    EXPECT_STREQ(text, "kept");
    EXPECT_EQ(ArchiveCause([&] { in << 1; }), CArchiveException::readOnly);
    EXPECT_EQ(ArchiveCause([&] {
                  int number;
                  out >> number;
              }),
              CArchiveException::writeOnly);
    out.Close();
    EXPECT_EQ(ArchiveCause([&] { out << 1; }), CArchiveException::genericException);
}

TEST(MemFile, GrowsOrStaysAsItWasMade)
{
    CMemFile file(4);
    file.Seek(6, CFile::begin);
    file.Write("ab", 2);
    EXPECT_EQ(file.Seek(-8, CFile::end), 0u);
    char bytes[9] = {};
    EXPECT_EQ(file.Read(bytes, 9), 8u);
    EXPECT_EQ(std::memcmp(bytes, "\0\0\0\0\0\0ab", 8), 0);
    EXPECT_TRUE(Throws<CFileException>([&] { file.Seek(-9, CFile::current); }));
    EXPECT_TRUE(Throws<CMemoryException>([&] { file.SetLength(~0ull); }));
    EXPECT_EQ(file.GetLength(), 8u);
    file.SetLength(3);
    EXPECT_EQ(file.GetPosition(), 3u) << "no further than the end";

    BYTE fixed[3] = {};
    CMemFile view(fixed, sizeof fixed);
    view.Write("xyz", 3);
    EXPECT_TRUE(Throws<CFileException>([&] { view.Write("!", 1); }));
    EXPECT_EQ(fixed[2], 'z');
    CFile none;
    char byte = 0;
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { none.Write("x", 1); }));
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { none.Read(&byte, 1); }));
    EXPECT_TRUE(Throws<CNotSupportedException>([&] { none.SetLength(1); }));
}

class Shape : public CObject
{
    DECLARE_DYNAMIC(Shape)
};
class Circle : public Shape
{
    DECLARE_DYNCREATE(Circle)
};
class Square : public Shape
{
    DECLARE_SERIAL(Square)
};
IMPLEMENT_DYNAMIC(Shape, CObject)
IMPLEMENT_DYNCREATE(Circle, Shape)
IMPLEMENT_SERIAL(Square, Shape, 3)

TEST(RuntimeClass, KnowsItsBasesAndCreates)
{
    CObject* const object = RUNTIME_CLASS(Circle)->CreateObject();
    ASSERT_NE(object, nullptr);
    EXPECT_NE(dynamic_cast<Circle*>(object), nullptr);
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "Circle");
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(Shape)) && object->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(object->IsKindOf(RUNTIME_CLASS(Square)));
    EXPECT_EQ(DYNAMIC_DOWNCAST(Square, object), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(Circle, object), object);
    EXPECT_EQ(RUNTIME_CLASS(Shape)->CreateObject(), nullptr);
    EXPECT_FALSE(object->IsSerializable());
    EXPECT_TRUE(Square().IsSerializable());
    delete object;
}

TEST(Exception, ArePointersThatDeleteThemselves)
{
    CException* first = nullptr;
    for (int i = 0; i < 2; ++i) {
        try {
            AfxThrowMemoryException();
        } catch (CException* exception) { // a base catches it too
            EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CSimpleException)));
            EXPECT_TRUE(first == nullptr || exception == first) << "no memory is taken";
            first = exception;
            exception->Delete(); // leaves it as it is
        }
    }
    EXPECT_STREQ(first->GetRuntimeClass()->m_lpszClassName, "CMemoryException");
    EXPECT_TRUE(Throws<CFileException>([] { AfxThrowFileException(CFileException::diskFull, 112, "a.txt"); }));
    EXPECT_TRUE(Throws<CInvalidArgException>([] { ENSURE(1 + 1 == 3); }));
}
} // namespace
