#include "cli/transcript.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <sstream>

namespace korva::cli {
namespace {

TEST(Quoting, PutsATextIntoQuotesAsUtf8) { EXPECT_EQ(Quoted(u"ｱｯﾌﾟﾛｰﾄﾞ完了。"), "\"ｱｯﾌﾟﾛｰﾄﾞ完了。\""); }

TEST(Quoting, PrintsAnEmptyTextAsTwoQuotes) { EXPECT_EQ(Quoted(u""), "\"\""); }

TEST(Quoting, KeepsBlanksAtTheEnds) { EXPECT_EQ(Quoted(u"  a "), "\"  a \""); }

TEST(Quoting, EscapesQuotesAndBackslashes) { EXPECT_EQ(Quoted(u"a\"b\\c"), R"("a\"b\\c")"); }

TEST(Quoting, PrintsALineBreakOfAnyFormAsOne) {
  EXPECT_EQ(Quoted(u"a\r\nb"), R"("a\nb")");
  EXPECT_EQ(Quoted(u"a\n\rb"), R"("a\nb")");
  EXPECT_EQ(Quoted(u"a\nb"), R"("a\nb")");
  EXPECT_EQ(Quoted(u"a\rb"), R"("a\nb")");
}

TEST(Quoting, CountsEachOfSeveralLineBreaks) {
  EXPECT_EQ(Quoted(u"a\r\n\r\nb"), R"("a\n\nb")");
  EXPECT_EQ(Quoted(u"a\n\r\n\rb"), R"("a\n\nb")");
  EXPECT_EQ(Quoted(u"a\n\nb"), R"("a\n\nb")");
  EXPECT_EQ(Quoted(u"a\r\rb\r"), R"("a\n\nb\n")");
}

/// Counts how often it is told to hand on what it holds.
class CountingBuffer : public std::stringbuf {
 public:
  int flushes = 0;

 protected:
  int sync() override {
    ++flushes;
    return 0;
  }
};

TEST(Transcript, FlushesEachLine) {
  CountingBuffer buffer;
  std::ostream stream(&buffer);
  std::ostringstream complaints;
  Transcript transcript(stream, complaints);
  transcript.Tell("end");
  EXPECT_EQ(buffer.flushes, 1);
  transcript.Tell("end");
  EXPECT_EQ(buffer.flushes, 2);
  EXPECT_EQ(buffer.str(), "end\nend\n");
}

/// Takes nothing, as a full disk does.
class FullBuffer : public std::stringbuf {
 protected:
  int sync() override {
    errno = ENOSPC;
    return -1;
  }
};

TEST(Transcript, TellsOnceThatALineCouldNotBeWritten) {
  FullBuffer buffer;
  std::ostream stream(&buffer);
  std::ostringstream complaints;
  Transcript transcript(stream, complaints);
  int told = 0;
  transcript.OnFailed([&told] { ++told; });
  EXPECT_FALSE(transcript.Failed());
  transcript.Tell("one");
  transcript.Tell("two");
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(transcript.Failed());
  EXPECT_EQ(transcript.Failure(), ENOSPC);
  EXPECT_EQ(buffer.str(), "one\n") << "nothing behind the gap";
}

TEST(Transcript, ComplainsUnderTheProgramsNameOnAStreamOfItsOwn) {
  std::ostringstream happenings;
  std::ostringstream complaints;
  Transcript transcript(happenings, complaints);
  transcript.Complain("line 3");
  EXPECT_EQ(happenings.str(), "");
  EXPECT_EQ(complaints.str(), "korva-cli: line 3\n");
}

}  // namespace
}  // namespace korva::cli
