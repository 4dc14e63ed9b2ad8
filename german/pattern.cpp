#include "german/pattern.h"

#include "german/characters.h"

namespace lorelin {
namespace {

constexpr std::size_t kMostSteps = 5000;
constexpr std::size_t kMostRepeats = 100;
constexpr int kDeepestGroup = 50;
constexpr std::size_t kMostGroups = 10;

bool IsWordCharacter(char32_t c) {
  return IsLetter(c) || (c >= U'0' && c <= U'9') || c == U'_';
}

}  // namespace

// Reads the expression from left to right and writes the steps.
class PatternCompiler {
 public:
  PatternCompiler(std::string_view expression, Pattern& pattern)
      : expression_(expression), pattern_(pattern) {}

  // Empty when all went well.
  std::string Compile() {
    Emit({Pattern::Op::Save, 0, false, 0, 0});
    Alternatives(0);
    if (error_.empty() && !AtEnd()) Fail("Eine schließende Klammer hat keine öffnende.");
    Emit({Pattern::Op::Save, 0, false, 1, 0});
    Emit({Pattern::Op::Done, 0, false, 0, 0});
    return error_;
  }

 private:
  using Op = Pattern::Op;
  using Step = Pattern::Step;
  using Range = Pattern::Range;

  [[nodiscard]] bool AtEnd() const { return at_ >= expression_.size(); }
  [[nodiscard]] char32_t Peek() const { return AtEnd() ? 0 : CharacterAt(expression_, at_).code; }
  char32_t Take() {
    const Character c = CharacterAt(expression_, at_);
    at_ += c.length;
    return c.code;
  }
  bool Accept(char32_t wanted) {
    if (AtEnd() || Peek() != wanted) return false;
    (void)Take();
    return true;
  }
  void Fail(const char* why) {
    if (error_.empty()) error_ = why;
    at_ = expression_.size();
  }
  std::size_t Here() const { return pattern_.steps_.size(); }
  std::size_t Emit(const Step& step) {
    if (Here() >= kMostSteps) {
      Fail("Der Ausdruck ist zu groß.");
      return 0;
    }
    pattern_.steps_.push_back(step);
    return Here() - 1;
  }

  void Alternatives(int depth) {
    if (depth > kDeepestGroup) return Fail("Die Klammern sind zu tief verschachtelt.");
    std::size_t begin = Here();
    std::vector<std::size_t> ends;
    Sequence(depth);
    while (Accept(U'|')) {
      Insert(begin, {Op::Split, 0, false, begin + 1, Here() + 2});
      ends.push_back(Emit({Op::Jump, 0, false, 0, 0}));
      begin = Here();
      Sequence(depth);
    }
    for (const std::size_t end : ends) pattern_.steps_[end].first = Here();
  }

  void Sequence(int depth) {
    while (!AtEnd() && Peek() != U'|' && Peek() != U')') Repeated(depth);
  }

  // Puts a step before those from `at` on, which all lie behind it.
  void Insert(std::size_t at, const Step& step) {
    if (Here() >= kMostSteps) return Fail("Der Ausdruck ist zu groß.");
    for (std::size_t i = at; i < Here(); ++i) {
      Step& moved = pattern_.steps_[i];
      if (moved.op != Op::Split && moved.op != Op::Jump) continue;
      moved.first += moved.first >= at ? 1 : 0;
      moved.second += moved.op == Op::Split && moved.second >= at ? 1 : 0;
    }
    pattern_.steps_.insert(pattern_.steps_.begin() + static_cast<std::ptrdiff_t>(at), step);
  }

  void Repeated(int depth) {
    const std::size_t begin = Here();
    Single(depth);
    while (error_.empty() && !AtEnd()) {
      if (Accept(U'*')) {
        Loop(begin, true);
      } else if (Accept(U'+')) {
        const bool few = Accept(U'?');
        Emit(Branch(few, begin, Here() + 1));
      } else if (Accept(U'?')) {
        const bool few = Accept(U'?');
        Insert(begin, Branch(few, begin + 1, Here() + 1));
      } else if (Peek() == U'{' && Counted(begin)) {
        continue;
      } else {
        return;
      }
    }
  }

  static Step Branch(bool few, std::size_t inside, std::size_t outside) {
    return {Op::Split, 0, false, few ? outside : inside, few ? inside : outside};
  }

  void Loop(std::size_t begin, bool mayBeFew) {
    const bool few = mayBeFew && Accept(U'?');
    Insert(begin, Branch(few, begin + 1, Here() + 2));
    Emit({Op::Jump, 0, false, begin, 0});
  }

  std::optional<std::size_t> Count() {
    if (Peek() < U'0' || Peek() > U'9') return std::nullopt;
    std::size_t count = 0;
    while (Peek() >= U'0' && Peek() <= U'9') {
      count = count * 10 + (Take() - U'0');
      if (count > kMostRepeats) Fail("Mehr als 100 Wiederholungen sind nicht möglich.");
    }
    return count;
  }

  // "{2}", "{2,}", "{2,5}": the steps are copied.
  bool Counted(std::size_t begin) {
    (void)Take();
    const auto least = Count();
    if (!least) {
      Fail("Hinter der geschweiften Klammer fehlt eine Zahl.");
      return false;
    }
    const bool open = Accept(U',');
    const auto most = open ? Count() : least;
    if (!Accept(U'}') || (most && *most < *least)) {
      Fail("Die Angabe in geschweiften Klammern ist unvollständig.");
      return false;
    }
    const std::vector<Step> once(pattern_.steps_.begin() + static_cast<std::ptrdiff_t>(begin),
                                 pattern_.steps_.end());
    pattern_.steps_.resize(begin);
    for (std::size_t i = 0; i < *least; ++i) Copy(once, begin);
    if (!most) {
      const std::size_t from = Here();
      Copy(once, begin);
      Loop(from, true);
      return true;
    }
    const bool few = Accept(U'?');
    for (std::size_t i = *least; i < *most; ++i) {
      const std::size_t from = Here();
      Copy(once, begin);
      Insert(from, Branch(few, from + 1, Here() + 1));
    }
    return true;
  }

  void Copy(const std::vector<Step>& steps, std::size_t begin) {
    const std::size_t shift = Here() - begin;
    for (Step step : steps) {
      if (step.op == Op::Split || step.op == Op::Jump) {
        step.first += shift;
        step.second += step.op == Op::Split ? shift : 0;
      }
      Emit(step);
    }
  }

  void Single(int depth) {
    const char32_t c = Take();
    switch (c) {
      case U'(':
        return Group(depth);
      case U'[':
        return Class();
      case U'.':
        Emit({Op::Any, 0, false, 0, 0});
        return;
      case U'^':
        Emit({Op::LineBegin, 0, false, 0, 0});
        return;
      case U'$':
        Emit({Op::LineEnd, 0, false, 0, 0});
        return;
      case U'\\':
        return Escape();
      case U'*':
      case U'+':
      case U'?':
        return Fail("Vor einem Zeichen für Wiederholungen steht nichts.");
      default:
        Emit({Op::Character, c, false, 0, 0});
    }
  }

  void Group(int depth) {
    bool keeps = true;
    if (Accept(U'?')) {
      if (!Accept(U':')) return Fail("Hinter „(?“ ist nur ein Doppelpunkt möglich.");
      keeps = false;
    }
    if (keeps && pattern_.groups_ >= kMostGroups) return Fail("Mehr als neun Gruppen sind nicht möglich.");
    const std::size_t group = keeps ? pattern_.groups_++ : 0;
    if (keeps) Emit({Op::Save, 0, false, 2 * group, 0});
    Alternatives(depth + 1);
    if (!Accept(U')')) return Fail("Eine Klammer ist nicht geschlossen.");
    if (keeps) Emit({Op::Save, 0, false, 2 * group + 1, 0});
  }

  static std::vector<Range> RangesOf(char32_t letter) {
    if (letter == U'd') return {{U'0', U'9'}};
    if (letter == U's') return {{U' ', U' '}, {U'\t', U'\t'}, {0xA0, 0xA0}, {U'\n', U'\n'}, {U'\r', U'\r'}};
    return {{U'0', U'9'}, {U'A', U'Z'}, {U'_', U'_'}, {U'a', U'z'},
            {0xC0, 0xD6}, {0xD8, 0xF6}, {0xF8, 0x24F}};
  }

  void EmitClass(std::vector<Range> ranges, bool negated) {
    pattern_.classes_.push_back(std::move(ranges));
    Emit({Op::Class, 0, negated, pattern_.classes_.size() - 1, 0});
  }

  void Escape() {
    if (AtEnd()) return Fail("Hinter dem letzten „\\“ fehlt ein Zeichen.");
    const char32_t c = Take();
    switch (c) {
      case U'd':
      case U'w':
      case U's':
        return EmitClass(RangesOf(c), false);
      case U'D':
      case U'W':
      case U'S':
        return EmitClass(RangesOf(c + 32), true);
      case U'b':
        Emit({Op::WordEdge, 0, false, 0, 0});
        return;
      case U'n':
        Emit({Op::Character, U'\n', false, 0, 0});
        return;
      case U't':
        Emit({Op::Character, U'\t', false, 0, 0});
        return;
      default:
        Emit({Op::Character, c, false, 0, 0});
    }
  }

  void Class() {
    const bool negated = Accept(U'^');
    std::vector<Range> ranges;
    bool first = true;
    while (first || Peek() != U']') {
      if (AtEnd()) return Fail("Eine eckige Klammer ist nicht geschlossen.");
      first = false;
      char32_t from = Take();
      if (from == U'\\' && !AtEnd()) {
        from = Take();
        if (from == U'd' || from == U'w' || from == U's') {
          for (const Range& range : RangesOf(from)) ranges.push_back(range);
          continue;
        }
        if (from == U'n') from = U'\n';
        if (from == U't') from = U'\t';
      }
      char32_t to = from;
      if (Peek() == U'-' && at_ + 1 < expression_.size() && expression_[at_ + 1] != ']') {
        (void)Take();
        to = Take();
        if (to == U'\\' && !AtEnd()) to = Take();
      }
      if (to < from) return Fail("Ein Bereich in eckigen Klammern ist verkehrt herum.");
      ranges.push_back({from, to});
    }
    (void)Take();
    EmitClass(std::move(ranges), negated);
  }

  std::string_view expression_;
  Pattern& pattern_;
  std::size_t at_ = 0;
  std::string error_;
};

std::optional<Pattern> Pattern::Compile(std::string_view expression, std::string* error) {
  Pattern pattern;
  const std::string wrong = PatternCompiler(expression, pattern).Compile();
  if (error != nullptr) *error = wrong;
  if (!wrong.empty()) return std::nullopt;
  return pattern;
}

bool Pattern::Takes(const Step& step, char32_t character) const {
  switch (step.op) {
    case Op::Character:
      return character == step.character;
    case Op::Any:
      return character != U'\n' && character != U'\r';
    case Op::Class: {
      bool inside = false;
      for (const Range& range : classes_[step.first])
        inside = inside || (character >= range.first && character <= range.last);
      return inside != step.negated;
    }
    default:
      return false;
  }
}

struct Pattern::Thread {
  std::size_t step = 0;
  std::vector<std::size_t> saved;
};

// Those that live at one place of the text, the preferred ones first; each step at most once.
struct Pattern::Threads {
  std::vector<Thread> list;
  std::vector<std::size_t> seen;  // the place at which a step was added last, plus one
};

void Pattern::AddThread(Threads& threads, Thread first, std::string_view text, std::size_t at) const {
  const auto wordAt = [text](std::size_t place) {
    return place < text.size() && IsWordCharacter(CharacterAt(text, place).code);
  };
  std::vector<Thread> open{std::move(first)};
  while (!open.empty()) {
    Thread thread = std::move(open.back());
    open.pop_back();
    if (threads.seen[thread.step] == at + 1) continue;
    threads.seen[thread.step] = at + 1;
    const Step& step = steps_[thread.step];
    switch (step.op) {
      case Op::Jump:
        thread.step = step.first;
        open.push_back(std::move(thread));
        break;
      case Op::Split: {
        Thread second = thread;
        second.step = step.second;
        thread.step = step.first;
        open.push_back(std::move(second));
        open.push_back(std::move(thread));
        break;
      }
      case Op::Save:
        thread.saved[step.first] = at;
        ++thread.step;
        open.push_back(std::move(thread));
        break;
      case Op::LineBegin:
      case Op::LineEnd:
      case Op::WordEdge: {
        const bool begin = at == 0 || text[at - 1] == '\n';
        const bool end = at == text.size() || text[at] == '\n' || text[at] == '\r';
        const bool before = at > 0 && (static_cast<unsigned char>(text[at - 1]) >= 0x80 || wordAt(at - 1));
        const bool holds =
            step.op == Op::LineBegin ? begin : (step.op == Op::LineEnd ? end : before != wordAt(at));
        if (!holds) break;
        ++thread.step;
        open.push_back(std::move(thread));
        break;
      }
      default:
        threads.list.push_back(std::move(thread));
    }
  }
}

std::optional<Pattern::Match> Pattern::Search(std::string_view text, std::size_t from) const {
  Threads now{{}, std::vector<std::size_t>(steps_.size(), 0)};
  Threads next{{}, std::vector<std::size_t>(steps_.size(), 0)};
  std::optional<std::vector<std::size_t>> found;
  for (std::size_t at = from;;) {
    if (!found) AddThread(now, {0, std::vector<std::size_t>(2 * groups_, kNoGroup)}, text, at);
    if (now.list.empty() && found) break;
    const Character c = at < text.size() ? CharacterAt(text, at) : Character{kNoCharacter, 0};
    for (Thread& thread : now.list) {
      const Step& step = steps_[thread.step];
      if (step.op == Op::Done) {
        found = std::move(thread.saved);
        break;  // those behind are worse
      }
      if (at < text.size() && Takes(step, c.code))
        AddThread(next, {thread.step + 1, std::move(thread.saved)}, text, at + c.length);
    }
    if (at >= text.size()) break;
    at += c.length;
    std::swap(now, next);
    next.list.clear();
  }
  if (!found) return std::nullopt;
  Match match;
  for (std::size_t i = 0; i < groups_; ++i) match.groups.emplace_back((*found)[2 * i], (*found)[2 * i + 1]);
  return match;
}

}  // namespace lorelin
