// The page about the header (docs/pjl-header.md), made from the rows that write it.
// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/pjl/header_doc.hpp"

#include <string_view>
#include <vector>

#include "job/forms.hpp"
#include "job/text_fields.hpp"
#include "pjl/frame.hpp"
#include "pjl/paper_tables.hpp"
#include "pjl/sequence.hpp"
#include "tests/support/memory_job.hpp"

namespace kelm::pjl {
namespace {

constexpr char kTop[] = R"(# The PJL header

Every job that the filter sends begins with a header in the Printer Job Language, in front of its
PostScript. This page is for whoever writes to such a printer, or reads what was sent to one. It is
made from the rows that write the header: `scripts/update-docs` writes it anew, and a test fails
when it is out of date.

Every line ends with a bare line feed (0x0A). A setting is `@PJL SET NAME=VALUE`: nothing is quoted,
no blank stands around the `=`, and a value may be empty. Nothing closes the PostScript that
follows.

## Frame

)";

constexpr char kVariables[] = R"(
`<ESC>` is the byte 0x1B.

## Variables

The lines stand in this order in every header. A *dialog job* carries the option `PrintPDE` (with
any value): it came through the maker's print dialog. Every other job is a *plain job*. Lines for
dialog jobs alone are left out of plain jobs. An option is one of the job's own: neither the PPD's
default nor its marked choice takes part, save where this table names the PPD.

"Choice: VALUE" is compared letter for letter. A choice that is in no row, an empty one too, gives
an empty value and not the default.

| # | Variable | Jobs | Option of dialog jobs | Option of plain jobs | Values | Without the option |
|---|---|---|---|---|---|---|
)";

constexpr char kPapersTop[] = R"(
## Papers

The names of QVPAGESIZE and PAPER, and the sizes of the four width and height variables, upright, in
1/100 mm. The sizes are the printer's own, not those of any published table. The choice `tabloid` is
for QVPAGESIZE and for the sizes of `media` alone.

| Choice | Name | Width | Height |
|---|---|---|---|
)";

constexpr char kCustomPapers[] = R"(
A custom paper is `Custom.WIDTHxHEIGHT` in PostScript points, whatever unit stands behind them; each
side is rounded to whole millimetres (p / 72 × 25.4) before it is sent in 1/100 mm. 595 points are
21000.

## Forms

What QVFORMSELECT1 and QVFORMSELECT2 of a plain job say, in hex, for a text that is a choice of the
PPD's option or its label in the job's language. A choice that is not in this table gives an empty
value; a text that is no choice is a typed text.

| Choice | Text |
|---|---|
)";

constexpr char kTypedTop[] = R"(
## Typed texts

A plain dialog sends what a person typed as `Custom.` and the text; the text ends at the next full
stop. A value without `Custom.` is a text as a whole. A text is sent only when its length in UTF-16
code units is within the bounds and its characters are allowed; otherwise the job counts as one
without the option, and so does one with the word for "nothing typed".

| Option | Nothing typed | Length | Characters |
|---|---|---|---|
)";

constexpr char kNotes[] = R"(
The forbidden characters are )";

constexpr char kEnd[] = R"(.

## Notes

- *Hex text.* Free texts go in hex: each byte of the UTF-8 text as two characters, upper case. A byte
  below 0x10 is a blank and one digit: a tab is ` 9`. The dialog sends its texts (options that end
  in `StringValueUTF8` or `TextValueUTF8`) in this form already, and they are copied.
  `417269616C4D54` is the font ArialMT. The host name and the title of a dialog job are cut after
  2047 bytes, which fill the printer's buffer; the title of a plain job is sent whole.
- *The PIN* (PASSWORD) is the one typed text that goes as it is, in clear.
- *An absent page size.* QVPAGESIZE without its option follows the job's `media`; PAPER without its
  option is AUTO whatever the target of a dialog job would be.
- *Orientation.* The width and height that decide an absent ORIENTATION are those of a custom
  `media` in a job of 1 to 99 options; on every other paper it is PORTRAIT.
- *Booklets.* A booklet binding changes the job's own QVDuplex, so that every later reader of the
  job sees the short edge.
- *What looks like a slip and is none:* two choices of QVOUTPUTMODE give DUAL; OfficeDoc of
  QVDITHERTYPE gives PHOTO and PhotoDoc PHOTODOC; HIGH_SPEED alone has an underscore; the default of
  QVFORMSURFACE is BACK; the order of QVGCGRAY and QVGCRED depends on the kind of job.
)";

std::string frameLines(const std::vector<void (*)(std::FILE*)>& writers) {
  tests::MemoryOutput output;
  for (const auto writer : writers) writer(output.stream());
  std::string text = output.text();
  const std::size_t escape = text.find('\x1B');
  if (escape != std::string::npos) text.replace(escape, 1, "<ESC>");
  return text;
}

std::string frame() {
  return "```\n" +
         frameLines({Output_Header, Output_Comment, Output_QVPJLVERSION, Output_QVPJLIDENTIFIER,
                     Output_QVRIPCONTROLFLAG, Output_QVSOFTWARENAME, Output_QVSOFTWAREVERSION}) +
         "(the variables)\n" +
         frameLines({[](std::FILE* stream) { Output_EnterPostScript(stream); }}) + "```\n";
}

std::string orEmpty(const char* text) { return *text == '\0' ? "empty" : text; }

// The cells of one variable.
struct Cells {
  std::string name;
  std::string dialogOption;
  std::string plainOption;
  std::string values;
  std::string absent;
};

std::string valuesOf(const ValueTableView& table) {
  std::string text;
  for (const ValueRow& row : table.rows) {
    if (row.key == nullptr) continue;
    if (!text.empty()) text += ", ";
    text += std::string(row.key) + ": " + row.value;
  }
  return text;
}

Cells cellsOf(const TableVariable& row) {
  return {row.pjlName, row.optionKey, row.optionKey, valuesOf(row.table),
          row.table.rows[row.table.defaultIndex].value};
}

Cells cellsOf(const CopyVariable& row) {
  return {row.pjlName, row.optionKey, row.optionKey, "as it is", orEmpty(row.defaultText)};
}

Cells cellsOf(const UpperCaseVariable& row) {
  return {row.pjlName, row.optionKey, row.optionKey, "in capitals", orEmpty(row.defaultText)};
}

Cells cellsOf(const OrientationVariable& row) {
  std::string values;
  for (const OrientationRow& choice : row.rows) {
    if (!values.empty()) values += ", ";
    values += std::string(choice.name) + " or " + choice.digit + ": " + choice.value;
  }
  return {row.pjlName, row.optionKey, row.optionKey, values,
          std::string(row.rows[1].value) + " on a custom paper that is wider than high, else " +
              row.rows[0].value};
}

Cells cellsOf(const OwnVariable& row) {
  return {row.pjlName, row.dialogSource, row.plainSource, row.values, row.absent};
}

std::string ofRoads(const std::string& dialog, const std::string& plain, const char* separator) {
  return dialog == plain ? dialog : dialog + " (dialog)" + separator + plain + " (plain)";
}

template <class Row>
Cells cellsOf(const DialogOrPlain<Row>& row) {
  const Cells dialog = cellsOf(row.dialog);
  const Cells plain = cellsOf(row.plain);
  return {dialog.name, dialog.dialogOption, plain.plainOption,
          ofRoads(dialog.values, plain.values, "; "), ofRoads(dialog.absent, plain.absent, ", ")};
}

std::string tableLine(const std::vector<std::string>& cells) {
  std::string line = "|";
  for (const std::string& cell : cells) line += " " + cell + " |";
  return line + "\n";
}

std::string variables() {
  std::string text;
  int number = 0;
  for (const HeaderSection& section : headerSections()) {
    for (const HeaderStep& step : section.steps) {
      const Cells cells = std::visit([](const auto* row) { return cellsOf(*row); }, step);
      text += tableLine({std::to_string(++number), cells.name,
                         section.dialogOnly ? "dialog" : "all", cells.dialogOption,
                         section.dialogOnly ? "–" : cells.plainOption, cells.values, cells.absent});
    }
  }
  return text;
}

std::string papers() {
  std::string text;
  for (const ValueRow& row : kPaperNames.rows) {
    const std::string_view choice = row.key == std::string_view("tabloid") ? "Tabloid" : row.key;
    const job::Paper& paper = *job::findPaper(choice);
    text += tableLine({row.key, row.value, paper.width, paper.height});
  }
  return text;
}

std::string forms() {
  std::string text;
  for (const ValueRow& row : job::kFormTags) text += tableLine({row.key, orEmpty(row.value)});
  return text;
}

std::string charactersOf(const job::TextField& field) {
  switch (field.rule) {
    case job::kForbiddenSet:
      return *field.forbidden == '\0' ? "any" : "any but the forbidden";
    case job::kProfileSet:
      return "ASCII letters and digits, _ - . tab and blank";
    case job::kSecretNumSet:
      return "digits";
  }
  return {};
}

std::string typedTexts() {
  std::string text;
  for (const auto* field :
       {&job::kBarcodeSelection, &job::kOutputProfile, &job::kFormSelect1, &job::kFormSelect2,
        &job::kOwnerName, &job::kJobName, &job::kSecretNum, &job::kJobComment}) {
    text += tableLine({field->key, field->offWord,
                       std::to_string(field->min) + " to " + std::to_string(field->max),
                       charactersOf(*field)});
  }
  return text;
}

}  // namespace

std::string headerDocument() {
  return kTop + frame() + kVariables + variables() + kPapersTop + papers() + kCustomPapers +
         forms() + kTypedTop + typedTexts() + kNotes + "`" + job::kForbiddenCharacters + "`" + kEnd;
}

}  // namespace kelm::pjl
