#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ports/ImportProcess.h"

namespace lorelin {

// Answers what the test put in, after it has told each of `steps`; an end in between is answered as a real
// process is.
class FakeImportProcess final : public ImportProcess {
 public:
  Answer Run(const Job& job, const std::function<bool(int)>& progress) override {
    jobs.push_back(job);
    for (const int step : steps) {
      if (progress && !progress(step)) {
        ++ended;
        return {};
      }
    }
    return answerTo ? answerTo(job) : answer;
  }

  Answer answer{.bytes = {}, .problem = "Es ist kein Dokument hinterlegt."};
  std::function<Answer(const Job&)> answerTo;  // instead of `answer`
  std::vector<int> steps{-1};
  std::vector<Job> jobs;
  int ended = 0;  // how many were ended before they were done
};

}  // namespace lorelin
