// kelmctl explain: what a job tells the printer, and why.
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/byte_source.hpp"
#include "base/number_text.hpp"
#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/explain_page.hpp"
#include "ctl/explain_text.hpp"
#include "ctl/job_defaults.hpp"
#include "ctl/message.hpp"
#include "ctl/opened_ppd.hpp"
#include "ctl/page_pictures.hpp"
#include "ctl/print_server.hpp"
#include "ctl/server_options.hpp"
#include "ctl/worker_pool.hpp"
#include "explain/explanation.hpp"
#include "explain/stream.hpp"
#include "explain/words.hpp"
#include "job/ppd_calls.hpp"
#include "job/print_job.hpp"

namespace kelm::ctl {
namespace {

constexpr std::chrono::seconds kLimitOfDefaults{30};

struct Arguments {
  std::optional<std::string> queue;
  std::optional<std::string> file;
  std::optional<std::string> stream;
  ServerOptions server;
  std::vector<std::string> options;
  std::optional<std::string> copies;
  std::vector<std::size_t> placesOfOptions;  // on the command line
  std::vector<std::size_t> placesOfCopies;
  std::string title;
  std::optional<std::string> page;
  bool changed = false;
  bool all = false;
  bool json = false;
};

OpenedPpd openPpd(const Arguments& arguments, const Console& console) {
  if (arguments.file) return openPpdFile(*arguments.file);
  PrintServer server(serversOf(arguments.server).front(), console);
  const std::string queue = arguments.queue.value_or("");
  return server.openPpdOfQueue(queue.substr(0, queue.find('/')));  // without the instance
}

// What the process that reads the defaults sends: each text ends with a zero byte. The first one is
// the problem, or empty; then come the name, the value and the giver of each option.
std::string sentDefaults(const std::string& problem, const std::vector<explain::Option>& defaults) {
  std::string sent = problem + '\0';
  for (const explain::Option& option : defaults) {
    sent += option.name + '\0' + option.value + '\0' +
            std::to_string(static_cast<int>(option.giver)) + '\0';
  }
  return sent;
}

std::string readDefaults(const Arguments& arguments, const Console& console) {
  PrintServer server(serversOf(arguments.server).front(), console);
  const auto destination = server.destination(*arguments.queue);
  if (destination == nullptr) return sentDefaults(server.lastProblem(), {});
  return sentDefaults("", jobDefaults(*destination, *arguments.queue));
}

// The defaults that lp would add to the job's options. libcups reads them in a process of its own,
// because it limits neither their size nor its own attempts at a silent server.
std::vector<explain::Option> defaultsOf(const Arguments& arguments, const Console& console) {
  if (!arguments.queue) return {};
  using Clock = std::chrono::steady_clock;
  std::optional<std::string> sent;
  WorkerPool process(1);
  process.start([&] { return readDefaults(arguments, console); },
                [&](std::optional<std::string> result) { sent = std::move(result); });
  for (const auto end = Clock::now() + kLimitOfDefaults; !process.isIdle();) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
    if (left <= left.zero()) break;
    process.wait(left);
  }
  std::istringstream texts(sent.value_or(std::string("the print server does not answer\0", 33)));
  std::string problem;
  std::getline(texts, problem, '\0');
  if (!problem.empty()) {
    complain(console, "the defaults of \"" + *arguments.queue +
                          "\" cannot be read and are ignored: " + problem);
  }
  std::vector<explain::Option> defaults;
  explain::Option option;
  for (std::string giver; std::getline(texts, option.name, '\0') &&
                          std::getline(texts, option.value, '\0') &&
                          std::getline(texts, giver, '\0');) {
    option.giver = static_cast<explain::Giver>(base::leadingInteger(giver.c_str()));
    defaults.push_back(option);
  }
  return defaults;
}

// The PPD that the arguments name, with its texts in the user's language. Null when it cannot be
// read; the console says why.
PpdHandle localisedPpd(const Arguments& arguments, const Console& console) {
  if (!arguments.file && !arguments.queue) return nullptr;
  OpenedPpd opened = openPpd(arguments, console);
  if (opened.ppd == nullptr) {
    complain(console, opened.problem);
    return nullptr;
  }
  job::r_ppdLocalize(opened.ppd.get());
  return std::move(opened.ppd);
}

// Writes the page that the arguments ask for. False when it cannot be written; the console says
// why.
bool wrotePage(const Arguments& arguments, const Page& page, const Console& console) {
  if (!arguments.page) return true;
  std::ofstream file(*arguments.page, std::ios::binary);
  writePage(file, page);
  if (file.flush()) return true;
  complain(console, "the page \"" + *arguments.page +
                        "\" cannot be written; give the path of a file that you may write");
  return false;
}

std::string copiesProblem(const std::string& text) {
  const bool isNumber = text.size() <= 4 && explain::isDigits(text);
  return isNumber && base::leadingInteger(text.c_str()) > 0 ? ""
                                                            : "must be a number from 1 to 9999";
}

// Whether the last "-o copies=" comes after "-n".
bool endsWithCopiesOption(const Arguments& arguments) {
  bool isAfter = false;
  for (std::size_t i = 0; i < arguments.options.size(); ++i) {
    if (explain::findOption(explain::parsedOptions({arguments.options[i]}), "copies") == nullptr) {
      continue;
    }
    isAfter = arguments.placesOfCopies.empty() ||
              arguments.placesOfOptions.at(i) > arguments.placesOfCopies.back();
  }
  return isAfter;
}

bool showsChangedOnly(const Arguments& arguments, const Console& console) {
  return arguments.changed || (console.outIsTerminal && !arguments.all);
}

int explainJob(const Arguments& arguments, const Console& console) {
  const PpdHandle ppd = localisedPpd(arguments, console);
  if (ppd == nullptr) return kExitFailed;
  explain::Request request{ppd.get(), explain::parsedOptions(arguments.options),
                           base::leadingInteger(arguments.copies.value_or("1").c_str()),
                           arguments.title};
  if (const explain::Option* copies = explain::findOption(request.options, "copies")) {
    const std::string problem = copiesProblem(copies->value);
    if (!problem.empty())
      return fail(console, shownText("copies=" + copies->value + " " + problem));
  }
  const bool hasCopies =
      explain::takeCopies(request, arguments.copies.has_value(), endsWithCopiesOption(arguments));
  explain::addDefaults(request, defaultsOf(arguments, console), hasCopies);
  const explain::Explanation explanation = explain::explained(request);
  Page page{arguments.title.empty() ? "What the job tells the printer" : arguments.title,
            {},
            explanation.lines,
            true};
  for (const explain::Remark& remark : explanation.remarks) {
    page.problems.push_back(remarkText(remark));
    for (const std::string& variable : remark.variables) {
      page.wrong[variable] = page.problems.back();
    }
    console.err << "kelmctl: " << page.problems.back() << '\n';
  }
  if (!wrotePage(arguments, page, console)) return kExitFailed;
  if (arguments.json) {
    printExplanationJson(console.out, explanation);
  } else {
    printExplanation(console.out, explanation, showsChangedOnly(arguments, console));
  }
  return explanation.remarks.empty() ? kExitDone : kExitFailed;
}

explain::StreamReport readPictured(base::ByteSource& source, PagePictures& pictures) {
  PicturedSource pictured(source, pictures);
  return explain::readStream(pictured);
}

int explainStream(const Arguments& arguments, const Console& console) {
  const bool isStandardInput = *arguments.stream == "-";
  const int descriptor =
      isStandardInput ? STDIN_FILENO : open(arguments.stream->c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) {
    return fail(console, "the stream \"" + *arguments.stream + "\" cannot be read: " +
                             std::strerror(errno) + "; give the path of a file, or -");
  }
  const PpdHandle ppd = localisedPpd(arguments, console);
  if (ppd == nullptr && (arguments.queue || arguments.file)) return kExitFailed;
  base::DescriptorSource source(descriptor);
  std::optional<PagePictures> pictures;
  if (arguments.page) pictures.emplace();
  const explain::StreamReport report =
      pictures ? readPictured(source, *pictures) : explain::readStream(source);
  if (!isStandardInput) close(descriptor);
  if (source.error() != 0) {
    return fail(console, "the stream \"" + *arguments.stream +
                             "\" cannot be read to its end: " + std::strerror(source.error()));
  }
  Page page{"What the printer was sent", problemTexts(report), explain::linesOf(report, ppd.get()),
            false};
  for (const explain::Finding& finding : report.findings) {
    if (!finding.variable.empty()) page.wrong[finding.variable] = shownText(finding.problem);
  }
  page.sections = sectionTexts(report);
  if (pictures) page.pictures = pictures->finish();
  if (!wrotePage(arguments, page, console)) return kExitFailed;
  if (arguments.json) {
    printStreamJson(console.out, report, ppd.get());
  } else {
    printStream(console.out, report, ppd.get(), showsChangedOnly(arguments, console));
  }
  return report.findings.empty() ? kExitDone : kExitFailed;
}

int runExplain(const Arguments& arguments, const Console& console) {
  job::SetupLocale();
  return arguments.stream ? explainStream(arguments, console) : explainJob(arguments, console);
}

}  // namespace

Action declareExplain(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  const Argument file = list.add("--ppd", arguments->file, "A PPD file instead of a queue's");
  list.add("QUEUE", arguments->queue, "The queue, as lpstat -v names it")
      .valueName("")
      .excludes(file.valueName("FILE"));
  const Argument options =
      list.add("-o", arguments->options, "An option of the job, as for lp(1); may be repeated");
  const Argument copies = list.add("-n", arguments->copies, "The number of copies");
  const Argument title = list.add("--title", arguments->title, "The job's title");
  list.add("--stream", arguments->stream,
           "What a printer was sent, from a file or standard input (-), instead of a job")
      .valueName("FILE")
      .excludes(options.valueName("NAME=VALUE"))
      .excludes(copies.valueName("COPIES").check(copiesProblem))
      .excludes(title.valueName("TITLE"));
  const Argument all = list.addFlag("--all", arguments->all,
                                    "Every line of the header, and every section of a stream");
  list.addFlag("--changed", arguments->changed,
               "Only what differs from a job without options (default on a terminal)")
      .excludes(all);
  list.add("--html", arguments->page, "Write a page for a web browser, too").valueName("FILE");
  list.addFlag("--json", arguments->json, "One JSON object, for programs");
  declareServer(list, arguments->server);
  list.require("QUEUE, --ppd FILE or --stream FILE",
               [arguments] { return arguments->queue || arguments->file || arguments->stream; });
  return [arguments, options, copies](const Console& console) {
    arguments->placesOfOptions = options.places();
    arguments->placesOfCopies = copies.places();
    return runExplain(*arguments, console);
  };
}

}  // namespace kelm::ctl
