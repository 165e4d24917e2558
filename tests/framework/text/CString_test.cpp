#include "tool/framework/text/CString.h"

#include <gtest/gtest.h>

#include "tool/framework/text/CStringArray.h"
#include "tool/framework/text/CUIntArray.h"

namespace {

// In code page 932 the second byte of 0x95 0x5C is a backslash, of 0x83 0x41 and 0x83 0x61 a letter, and of
// 0x81 0x7C a bar.
constexpr const char *kanji = "\x95\x5C";

TEST(CString, joinsInEveryMix) {
  const CString a("ab");
  EXPECT_EQ(a + CString("cd"), "abcd");
  EXPECT_EQ(a + "cd", "abcd");
  EXPECT_EQ(a + 'c', "abc");
  EXPECT_EQ("x" + a, "xab");
  EXPECT_EQ('x' + a, "xab");
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

TEST(CString, keepsZeroCharacters) {
  CString text('\0');
  EXPECT_EQ(text.GetLength(), 1);
  text += "a";
  EXPECT_EQ(text.GetLength(), 2);
  EXPECT_EQ(text.Mid(1), "a");
  EXPECT_EQ(CString("a\0b", 3).GetLength(), 3);
}

TEST(CString, partsStayInsideTheText) {
  struct Row {
    int first;
    int count;
    const char *part;
  };
  const Row rows[] = {{0, 2, "ab"}, {2, 99, "cd"},         {4, 1, ""}, {9, 1, ""}, {-3, 2, "ab"},
                      {1, -1, ""},  {1, 0x7FFFFFFF, "bcd"}};
  const CString text("abcd");
  for (const Row &row : rows)
    EXPECT_EQ(text.Mid(row.first, row.count), row.part) << row.first << " " << row.count;
  EXPECT_EQ(text.Left(9), "abcd");
  EXPECT_EQ(text.Right(3), "bcd");
  EXPECT_EQ(text.Right(-1), "");
  EXPECT_EQ(text.GetAt(4), '\0');
  EXPECT_EQ(text[-1], '\0');
  CString same = text;
  same.SetAt(4, 'x');
  same.SetAt(-1, 'x');
  EXPECT_EQ(same, text);
}

TEST(CString, searchesWholeCharacters) {
  const CString path = CString("C:\\") + kanji + "\\" + kanji + "x";
  EXPECT_EQ(path.Find('\\'), 2);
  EXPECT_EQ(path.Find('\\', 3), 5);
  EXPECT_EQ(path.Find("\\", 6), -1);
  EXPECT_EQ(path.ReverseFind('\\'), 5);
  EXPECT_EQ(path.Find(kanji, 4), 6);
  EXPECT_EQ(path.Find("x"), 8);
  EXPECT_EQ(path.Find(""), 0);
  EXPECT_EQ(path.Find('x', 99), -1);
  EXPECT_EQ(path.FindOneOf("x\\"), 2);
  EXPECT_EQ(CString("abc").FindOneOf("xyz"), -1);
}

TEST(CString, changesWholeCharactersOnly) {
  CString text = CString(kanji) + "\\" + kanji;
  EXPECT_EQ(text.Replace('\\', '/'), 1);
  EXPECT_EQ(text, CString(kanji) + "/" + kanji);
  EXPECT_EQ(text.Replace(kanji, "ab"), 2);
  EXPECT_EQ(text, "ab/ab");
  EXPECT_EQ(text.Replace("", "x"), 0);
  EXPECT_EQ(text.Replace("ab", text), 2);  // the argument is the text itself
  EXPECT_EQ(text, "ab/ab/ab/ab");
  CString letters("a\x83\x41z\x83\x61");
  EXPECT_EQ(letters.MakeUpper(), "A\x83\x41Z\x83\x61");
  EXPECT_EQ(letters.MakeLower(), "a\x83\x41z\x83\x61");
  CString removal = CString("\\a\\") + kanji + "\\";
  EXPECT_EQ(removal.Remove('\\'), 3);
  EXPECT_EQ(removal, CString("a") + kanji);
}

TEST(CString, trims) {
  EXPECT_EQ(CString(" \t a b \r\n").Trim(), "a b");
  EXPECT_EQ(CString(" \r\n ").Trim(), "");
  EXPECT_EQ(CString("xxaxx").TrimLeft('x'), "axx");
  EXPECT_EQ(CString("xyaxy").TrimRight("yx"), "xya");
  EXPECT_EQ((CString(kanji) + "\\\\").TrimRight('\\'), kanji);
  EXPECT_EQ(CString("..a..").Trim("."), "a");
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
  const auto pieces = [](const char *text, const char *delimiters) {
    std::vector<std::string> result;
    int start = 0;
    for (CString piece = CString(text).Tokenize(delimiters, start); start != -1;
         piece = CString(text).Tokenize(delimiters, start))
      result.push_back(piece.str());
    return result;
  };
  using Pieces = std::vector<std::string>;
  EXPECT_EQ(pieces("a,b;;c", ",;"), (Pieces{"a", "b", "c"}));
  EXPECT_EQ(pieces(",,a", ","), (Pieces{"a"}));
  EXPECT_EQ(pieces("a,,", ","), (Pieces{"a"}));
  EXPECT_EQ(pieces("", ","), Pieces{});
  EXPECT_EQ(pieces(",", ","), Pieces{});
  EXPECT_EQ(pieces("\x95\x5C\\b", "\\"), (Pieces{kanji, "b"}));
  EXPECT_EQ(CString("aab").SpanIncluding("a"), "aa");
  EXPECT_EQ(CString("aab").SpanExcluding("b"), "aa");
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

TEST(CString, formatsLongTexts) {
  CString text;
  text.Format("%500d", 7);
  EXPECT_EQ(text.GetLength(), 500);
  text.AppendFormat("%s", "end");
  EXPECT_EQ(text.Right(4), "7end");
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
  EXPECT_THROW(texts.RemoveAt(2), CInvalidArgException);
  EXPECT_THROW(texts.RemoveAt(1, 2), CInvalidArgException);
  EXPECT_THROW(texts.InsertAt(-1, "x"), CInvalidArgException);
  EXPECT_THROW(texts.SetSize(-1), CInvalidArgException);
  EXPECT_EQ(texts.GetSize(), 2);
}

TEST(Arrays, growInsertAndRemove) {
  CUIntArray numbers;
  EXPECT_TRUE(numbers.IsEmpty());
  EXPECT_EQ(numbers.GetUpperBound(), -1);
  numbers.SetAtGrow(2, 7);
  EXPECT_EQ(numbers.GetSize(), 3);
  EXPECT_EQ(numbers[0], 0u);
  numbers.InsertAt(1, 5, 2);
  numbers.InsertAt(7, 9);
  numbers.RemoveAt(0);
  EXPECT_EQ(std::vector<UINT>(numbers.begin(), numbers.end()), (std::vector<UINT>{5, 5, 0, 7, 0, 0, 9}));
  numbers.Append(numbers);
  EXPECT_EQ(numbers.GetCount(), 14);
}

}  // namespace
