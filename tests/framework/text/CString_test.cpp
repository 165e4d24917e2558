#include "tool/framework/text/CString.h"

#include <gtest/gtest.h>

#include "tool/framework/text/CStringArray.h"
#include "tool/framework/text/CUIntArray.h"

namespace {

// In code page 932 the second byte of 0x95 0x5C is a backslash, of 0x83 0x41 and 0x83 0x61 a letter, and of
// 0x81 0x7C a bar.
constexpr const char *kanji = "\x95\x5C";

struct Text {
  CString actual;
  const char *expected;
};

TEST(CString, joinsCutsAndTrims) {
  const CString a("ab"), text("abcd");
  for (const Text &row : {Text{a + CString("cd"), "abcd"},
                          Text{a + "cd", "abcd"},
                          Text{a + 'c', "abc"},
                          Text{"x" + a, "xab"},
                          Text{'x' + a, "xab"},
                          Text{text.Mid(0, 2), "ab"},
                          Text{text.Mid(2, 99), "cd"},
                          Text{text.Mid(4, 1), ""},
                          Text{text.Mid(9, 1), ""},
                          Text{text.Mid(-3, 2), "ab"},
                          Text{text.Mid(1, -1), ""},
                          Text{text.Mid(1, 0x7FFFFFFF), "bcd"},
                          Text{text.Left(9), "abcd"},
                          Text{text.Right(3), "bcd"},
                          Text{text.Right(-1), ""},
                          Text{CString(" \t a b \r\n").Trim(), "a b"},
                          Text{CString(" \r\n ").Trim(), ""},
                          Text{CString("xxaxx").TrimLeft('x'), "axx"},
                          Text{CString("xyaxy").TrimRight("yx"), "xya"},
                          Text{(CString(kanji) + "\\\\").TrimRight('\\'), kanji},
                          Text{CString("..a..").Trim("."), "a"},
                          Text{CString("aab").SpanIncluding("a"), "aa"},
                          Text{CString("aab").SpanExcluding("b"), "aa"},
                          Text{CString("AbC\x83\x41").MakeUpper(), "ABC\x83\x41"},
                          Text{CString("AbC\x83\x61").MakeLower(), "abc\x83\x61"}})
    EXPECT_EQ(row.actual, row.expected);
  CString joined = a + "-" + a;
  joined += joined;
  joined += static_cast<const char *>(nullptr);
  joined.Append("xyz", 2);
  EXPECT_EQ(joined, "ab-abab-abxy");
}

TEST(CString, copiesFromItself) {
  CString text("abcdef");
  text = text.GetString() + 2;
  EXPECT_EQ(text, "cdef");
  text.Insert(1, text.GetString());
  EXPECT_EQ(text, "ccdefdef");
  text.Format("%s|%s", text.GetString(), text.GetString());
  EXPECT_EQ(text, "ccdefdef|ccdefdef");
  text.Format("%500d", 7);
  text.AppendFormat("%s", "end");
  EXPECT_EQ(text.GetLength(), 503);
  EXPECT_EQ(text.Right(4), "7end");
}

TEST(CString, comparesByByteValue) {
  EXPECT_LT(CString("B"), CString("a"));
  EXPECT_LT(CString("a"), "\x83\x41");
  EXPECT_GT("b", CString("a"));
  EXPECT_NE(CString("a"), "A");
  EXPECT_LE(CString("ab"), "ab");
  EXPECT_EQ(CString("AbC").CompareNoCase("aBc"), 0);
  EXPECT_NE(CString("\x83\x41").CompareNoCase("\x83\x61"), 0);  // two different characters
  EXPECT_LT(CString("ab").Compare("abc"), 0);
  EXPECT_EQ(CString(), static_cast<const char *>(nullptr));
}

TEST(CString, keepsZeroCharactersAndItsEnds) {
  CString text('\0');
  text += "a";
  EXPECT_EQ(text.GetLength(), 2);
  EXPECT_EQ(text.Mid(1), "a");
  EXPECT_EQ(CString("a\0b", 3).GetLength(), 3);
  for (const int outside : {-1, 2}) {
    EXPECT_EQ(text.GetAt(outside), '\0');
    text.SetAt(outside, 'x');
  }
  EXPECT_EQ(text, CString("\0a", 2));
}

TEST(CString, searchesAndChangesWholeCharacters) {
  const CString path = CString("C:\\") + kanji + "\\" + kanji + "x";
  struct Row {
    int actual, expected;
  };
  for (const Row &row : {Row{path.Find('\\'), 2}, Row{path.Find('\\', 3), 5}, Row{path.Find("\\", 6), -1},
                         Row{path.ReverseFind('\\'), 5}, Row{path.Find(kanji, 4), 6}, Row{path.Find("x"), 8},
                         Row{path.Find(""), 0}, Row{path.Find('x', 99), -1}, Row{path.FindOneOf("x\\"), 2},
                         Row{CString("abc").FindOneOf("xyz"), -1}})
    EXPECT_EQ(row.actual, row.expected);
  CString text = CString(kanji) + "\\" + kanji;
  EXPECT_EQ(text.Replace('\\', '/'), 1);
  EXPECT_EQ(text, CString(kanji) + "/" + kanji);
  EXPECT_EQ(text.Replace(kanji, "ab"), 2);
  EXPECT_EQ(text.Replace("", "x"), 0);
  EXPECT_EQ(text.Replace("ab", text), 2);  // the argument is the text itself
  EXPECT_EQ(text, "ab/ab/ab/ab");
  CString removal = CString("\\a\\") + kanji + "\\";
  EXPECT_EQ(removal.Remove('\\'), 3);
  EXPECT_EQ(removal, CString("a") + kanji);
}

TEST(CString, insertsAndDeletes) {
  CString text("bd");
  EXPECT_EQ(text.Insert(1, 'c'), 3);
  EXPECT_EQ(text.Insert(-5, "a"), 4);
  EXPECT_EQ(text.Insert(99, "e"), 5);
  EXPECT_EQ(text, "abcde");
  EXPECT_EQ(text.Delete(1, 2), 3);
  EXPECT_EQ(text.Delete(2, 99), 2);
  EXPECT_EQ(text.Delete(9), 2);
  EXPECT_EQ(text, "ad");
}

TEST(CString, tokenizes) {
  struct Row {
    const char *text, *delimiters, *pieces;
  };
  for (const Row &row : {Row{"a,b;;c", ",;", "a|b|c|"}, Row{",,a", ",", "a|"}, Row{"a,,", ",", "a|"},
                         Row{"", ",", ""}, Row{",", ",", ""}, Row{"\x95\x5C\\b", "\\", "\x95\x5C|b|"}}) {
    const CString text(row.text);
    CString pieces;
    int start = 0;
    for (CString piece = text.Tokenize(row.delimiters, start); start != -1;
         piece = text.Tokenize(row.delimiters, start))
      pieces += piece + "|";
    EXPECT_EQ(pieces, row.pieces) << row.text;
  }
}

TEST(CString, givesItsBufferAway) {
  CString text("abc");
  char *buffer = text.GetBuffer(10);
  buffer[3] = 'd';
  buffer[4] = '\0';
  text.ReleaseBuffer();
  EXPECT_EQ(text, "abcd");
  text.GetBuffer(2);
  text.ReleaseBuffer(2);
  EXPECT_EQ(text, "ab");
  text.GetBufferSetLength(1);
  EXPECT_EQ(text, "a");
}

TEST(Arrays, refuseBadPositions) {
  CStringArray texts;
  texts.Add("a");
  texts.Add("b");
  for (const int bad : {-1, 2, 1000}) {
    EXPECT_THROW(texts.GetAt(bad), CInvalidArgException) << bad;
    EXPECT_THROW(texts[bad], CInvalidArgException) << bad;
    EXPECT_THROW(texts.SetAt(bad, "x"), CInvalidArgException) << bad;
    EXPECT_THROW(texts.ElementAt(bad), CInvalidArgException) << bad;
  }
  EXPECT_THROW(texts.SetAtGrow(-1, "x"), CInvalidArgException);
  EXPECT_THROW(texts.RemoveAt(1, 2), CInvalidArgException);
  EXPECT_THROW(texts.InsertAt(-1, "x"), CInvalidArgException);
  EXPECT_THROW(texts.SetSize(-1), CInvalidArgException);
  EXPECT_EQ(texts.GetSize(), 2);
}

TEST(Arrays, growInsertAndRemove) {
  CUIntArray numbers;
  EXPECT_EQ(numbers.GetUpperBound(), -1);
  numbers.SetAtGrow(2, 7);
  numbers.InsertAt(1, 5, 2);
  numbers.InsertAt(7, 9);
  numbers.RemoveAt(0);
  EXPECT_EQ(std::vector<UINT>(numbers.begin(), numbers.end()), (std::vector<UINT>{5, 5, 0, 7, 0, 0, 9}));
  numbers.Append(numbers);
  EXPECT_EQ(numbers.GetCount(), 14);
}

}  // namespace
