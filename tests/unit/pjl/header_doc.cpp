// The page about the header (docs/pjl-header.md), made from the rows that write the header.
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

Every job that the filter sends begins with a header in the Printer Job Language (PJL), followed by
the job's PostScript. This page is the reference for the header. It is generated from the tables that
write the header. Run `scripts/update-docs` after a change; a test fails if the page is out of date.

Every line ends with a bare line feed (0x0A). A setting is `@PJL SET NAME=VALUE`, without quotation
marks and without spaces around the `=`; a value may be empty. Nothing is sent after the PostScript.

## Frame

)";

constexpr char kVariables[] = R"(
`<ESC>` is the byte 0x1B.

## Variables

The lines are in this order in every header. A *dialog job* has the option `PrintPDE` (with any
value): it comes from the maker's print dialog. Every other job is a *plain job*. A line marked
"dialog" is written for dialog jobs only.

The values come from the options of the job. The PPD's defaults and marked choices have no effect,
except where this table names the PPD. In queues that map standard options, however, the filter first
gives a plain job every option of the printer that the PPD has ([queue.md](queue.md)).

"Choice: VALUE" means that this choice gives this value; upper and lower case differ. A choice that
is not listed, or an empty one, gives an empty value, not the default.

| # | Variable | Jobs | Option of dialog jobs | Option of plain jobs | Values | Without the option |
|---|---|---|---|---|---|---|
)";

constexpr char kPapersTop[] = R"(
## Papers

These are the names for QVPAGESIZE and PAPER, and the sizes for the four width and height variables.
The sizes are those of upright paper, in 1/100 mm. They are the printer's own, and some differ from the
standards. The choice `tabloid` works only for QVPAGESIZE and in `media`.

| Choice | Name | Width | Height |
|---|---|---|---|
)";

constexpr char kCustomPapers[] = R"(
A custom paper is `Custom.WIDTHxHEIGHT` in PostScript points; a unit after a number is ignored. Each
side is rounded to whole millimetres (p / 72 × 25.4) and sent in 1/100 mm: 595 points are 21000.

## Forms

These are the values of QVFORMSELECT1 and QVFORMSELECT2 in a plain job. The job can name a choice of
the PPD's option, or the choice's label in the job's language. The text is sent in hex. A choice of the
PPD that is not in this table gives an empty value. A text that is neither a choice nor a label is a
custom value.

| Choice | Text |
|---|---|
)";

constexpr char kCustomValuesTop[] = R"(
## Custom values

In a plain job, a custom value is `Custom.` and the text, which ends at its first full stop. A value
without `Custom.` is the text itself. The text is valid if its length in UTF-16 code units is
within the limits and all its characters are allowed. An invalid text has the same effect as no
option. So has the option's "off" choice.

| Option | Off | Length | Characters |
|---|---|---|---|
)";

constexpr char kNotes[] = R"(
The forbidden characters are )";

constexpr char kEnd[] = R"(.

## Notes

- *Hex text.* Free texts are sent in hex: each byte of the UTF-8 text as two characters, in upper
  case. A byte below 0x10 is a space and one digit: a tab is ` 9`. `417269616C4D54` is the font ArialMT.
  The dialog sends its texts (options that end in `StringValueUTF8` or `TextValueUTF8`) already in this
  form, and the filter copies them. The host name and the title of a dialog job are cut after 2047 bytes.
  The title of a plain job is sent whole.
- *The PIN* (PASSWORD) is the only free text that is sent in clear.
- *Absent page sizes.* QVPAGESIZE without its option is the paper of the job's `media`. PAPER without its
  option is always AUTO.
- *Orientation.* Without an option, ORIENTATION is LANDSCAPE only for a custom `media` that is wider
  than high, in a job of at most 99 options (of any number in queues that map standard options). In
  every other case it is PORTRAIT.
- *Booklets.* A booklet binding changes the job's QVDuplex to ShortEdge, also for what the filter writes
  later.
- These values are intended, although they look like mistakes:
  - Two choices of QVOUTPUTMODE give DUAL.
  - OfficeDoc of QVDITHERTYPE gives PHOTO, and PhotoDoc gives PHOTODOC.
  - Only HIGH_SPEED has an underscore.
  - The default of QVFORMSURFACE is BACK.
  - The order of QVGCGRAY and QVGCRED depends on the kind of job.
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

std::string dialogAndPlain(const std::string& dialog, const std::string& plain,
                           const char* separator) {
  return dialog == plain ? dialog : dialog + " (dialog)" + separator + plain + " (plain)";
}

template <class Row>
Cells cellsOf(const DialogOrPlain<Row>& row) {
  const Cells dialog = cellsOf(row.dialog);
  const Cells plain = cellsOf(row.plain);
  return {dialog.name, dialog.dialogOption, plain.plainOption,
          dialogAndPlain(dialog.values, plain.values, "; "),
          dialogAndPlain(dialog.absent, plain.absent, ", ")};
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
      return "ASCII letters and digits, _ - . tab and space";
    case job::kSecretNumSet:
      return "digits";
  }
  return {};
}

std::string customValues() {
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
         forms() + kCustomValuesTop + customValues() + kNotes + "`" + job::kForbiddenCharacters +
         "`" + kEnd;
}

}  // namespace kelm::pjl
