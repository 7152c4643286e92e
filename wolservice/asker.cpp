// Asks printers that are being woken whether they are awake.
#include "wolservice/asker.hpp"

#include <utility>

namespace kelm::wolservice {

Asker::Asker(PrinterQueries queries, std::chrono::milliseconds interval,
             std::function<void(const Finding&)> found)
    : queries_(std::move(queries)),
      interval_(interval),
      found_(std::move(found)),
      thread_([this] { run(); }) {}

Asker::~Asker() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
  }
  changed_.notify_one();
  thread_.join();
}

void Asker::add(const Question& question) {
  {
    const std::lock_guard lock(mutex_);
    pending_.push_front({question, Clock::now()});
  }
  changed_.notify_one();
}

void Asker::remove(int number) {
  const std::lock_guard lock(mutex_);
  pending_.remove_if([&](const Pending& each) { return each.question.number == number; });
}

void Asker::run() {
  while (const std::optional<Question> question = nextQuestion()) ask(*question);
}

// Waits until a question is due, puts it at the end for the next time, and returns it; nothing at
// the end of the asker.
std::optional<Question> Asker::nextQuestion() {
  std::unique_lock lock(mutex_);
  while (!stopped_) {
    if (pending_.empty()) {
      changed_.wait(lock);
    } else if (pending_.front().due > Clock::now()) {
      changed_.wait_until(lock, Clock::time_point(pending_.front().due));
    } else {
      Question question = pending_.front().question;
      pending_.front().question.wantsLocation = false;
      pending_.front().due = Clock::now() + interval_;
      pending_.splice(pending_.end(), pending_, pending_.begin());
      return question;
    }
  }
  return std::nullopt;
}

void Asker::ask(const Question& question) {
  if (question.wantsLocation) {
    if (const auto location = queries_.locate(question.address)) {
      found_({question.number, location});
    }
  }
  if (queries_.answers(question.address, question.snmpCommunity)) {
    remove(question.number);
    found_({question.number, std::nullopt});
  }
}

}  // namespace kelm::wolservice
