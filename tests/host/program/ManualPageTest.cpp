#include "host/program/ManualPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/program/SampleProgram.h"
#include "tests/host/program/ShellRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quobrak::host {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

/// What `man` shows of a page; the test fails where it warns.
std::string shownByMan(const std::string& page) {
  needsProgram("man");
  const quobrak::testing::TemporaryFolder folder;
  folder.write("page.1", page);
  const std::string file = (folder.path() / "page.1").string();
  EXPECT_EQ(printedBy("MANROFFSEQ='' MANWIDTH=100 man --warnings -E UTF-8 -l -Tutf8 -Z '" + file + "' >/dev/null"), "");
  return printedBy("MANPAGER=cat MANWIDTH=100 man -E UTF-8 -l '" + file + "'");
}

TEST(ManualPage, OfASubcommand) {
  EXPECT_EQ(manualOfSubcommand(samplePaint(), "quobrak 1.2.3"), R"(.TH QUOBRAK\-PAINT 1 "" "quobrak 1.2.3" "quobrak"
.nh
.SH NAME
quobrak\-paint \- Paints what a file says
.SH SYNOPSIS
\fBquobrak paint\fR [OPTION]... FILE...
.SH DESCRIPTION
Paints what a file says.
.PP
A picture is painted from the left to the right, and from the top to the bottom, as one reads.
.PP
.nf
  .dots \- and
  'quotes'
.fi
.PP
\&.txt and \e stay.
.SH ARGUMENTS
.TP
\fBFILE...\fR
What to paint
.SH OPTIONS
.TP
\fB\-\-format text|json\fR
How to write it (default: text)
.TP
\fB\-o, \-\-out FOLDER\fR
Where it goes; the folder is made where it is missing, with all that is above
.TP
\fB\-\-number NUMBER\fR
How many
.TP
\fB\-\-tag TEXT...\fR
What to remember it by
.TP
\fB\-q, \-\-quiet\fR
Say nothing: not [even] a word
.TP
\fB\-\-loud\fR
Say all
.TP
\fB\-h, \-\-help\fR
Show this help and end
.SH COLOURS
.TP
\fB\-\-theme TEXT\fR
In which colours; one of dark, light, painter's
.SH EXAMPLES
.TP
\fBquobrak paint a.txt \-o pictures\fR
paints one file
.TP
\fBquobrak paint *.txt \-\-quiet\fR
paints all, without a word
.SH EXIT STATUS
.TP
\fB0\fR
All is painted
.TP
\fB2\fR
The command line cannot be used
.SH SEE ALSO
\fBquobrak\fR(1)
)");
}

TEST(ManualPage, OfTheProgramNamesItsSubcommandsAndTheOtherPages) {
  const std::string page = manualOfProgram(sampleProgram(), "quobrak 1.2.3");
  EXPECT_THAT(page, HasSubstr(".SH SUBCOMMANDS\n.TP\n\\fBpaint\\fR\nPaints what a file says\n.TP\n\\fBshow\\fR\n"));
  EXPECT_THAT(page, HasSubstr(".SH SEE ALSO\n\\fBquobrak\\-paint\\fR(1),\n\\fBquobrak\\-show\\fR(1),\n"));
}

TEST(ManualPage, IsShownByManWithoutAWarning) {
  EXPECT_THAT(shownByMan(manualOfSubcommand(samplePaint(), "quobrak 1.2.3")),
              AllOf(HasSubstr("quobrak paint [OPTION]... FILE..."), HasSubstr("  .dots - and\n"),
                    HasSubstr("'quotes'\n"), HasSubstr(".txt and \\ stay.")));
  EXPECT_THAT(shownByMan(manualOfProgram(sampleProgram(), "quobrak 1.2.3")), HasSubstr("EXIT STATUS"));
}

}  // namespace
}  // namespace quobrak::host
