#include "app/SleepTimer.h"

#include <array>
#include <chrono>
#include <string>
#include <string_view>

namespace lorelin {
namespace {

constexpr int kParagraph = -1;
constexpr std::string_view kNotice = "sleep";

struct Entry {
  int minutes;
  std::string_view command;
  std::string_view menuEntry;
};
constexpr std::array kEntries{Entry{0, "SleepOff", "mnuSleepOff"}, Entry{15, "SleepIn15", "mnuSleep15"},
                              Entry{30, "SleepIn30", "mnuSleep30"}, Entry{60, "SleepIn60", "mnuSleep60"},
                              Entry{kParagraph, "SleepAtParagraph", "mnuSleepParagraph"}};

std::string TimeOfDay(int minutes) {
  const std::string minute = std::to_string(minutes % 60);
  return std::to_string(minutes / 60 % 24) + ":" + (minute.size() < 2 ? "0" : "") + minute;
}

}  // namespace

void SleepTimer::AddCommands(CommandTable& commands) {
  commands.Add("SleepOff", [this] { Off(); });
  for (const Entry& entry : kEntries) {
    if (entry.minutes > 0)
      commands.Add(entry.command, [this, minutes = entry.minutes] { SetMinutes(minutes); });
  }
  commands.Add("SleepAtParagraph", [this] { SetParagraph(); });
  commands.AddCondition("SleepAtParagraph", [this] { return parts_.along.CanSteer(); });
}

void SleepTimer::Show() {
  for (const Entry& entry : kEntries) parts_.view.CheckMenuEntry(entry.menuEntry, entry.minutes == minutes_);
}

void SleepTimer::Set(int minutes) {
  parts_.alarm.Cancel();
  minutes_ = minutes;
  Show();
}

void SleepTimer::Off() {
  Set(0);
  parts_.statusBar.SetNotice(kNotice, "");
}

// The time of day stays true without being shown anew.
void SleepTimer::SetMinutes(int minutes) {
  Set(minutes);
  parts_.alarm.Set(std::chrono::minutes(minutes), [this] { Finish(); });
  const LocalTime now = parts_.clock.Now();
  parts_.statusBar.SetNotice(kNotice, "Schlafzeit bis " + TimeOfDay(now.hour * 60 + now.minute + minutes));
}

void SleepTimer::SetParagraph() {
  const auto place = parts_.along.Place();
  if (!place) return Show();  // the menu has checked the entry already
  Set(kParagraph);
  paragraph_ = Paragraph();
  jumps_ = place->jumps;
  parts_.statusBar.SetNotice(kNotice, "Schlafzeit bis zum Ende des Absatzes");
}

std::size_t SleepTimer::Paragraph() const {
  const auto place = parts_.along.Place();
  return place ? parts_.along.Sentences()->ParagraphOf(place->sentence) : 0;
}

// Who moves the voice means the paragraph where it goes on.
void SleepTimer::Moved() {
  if (minutes_ != kParagraph) return;
  const std::size_t paragraph = Paragraph();
  const std::size_t jumps = parts_.along.Place()->jumps;
  if (std::exchange(jumps_, jumps) != jumps) paragraph_ = paragraph;
  if (paragraph != paragraph_) Finish();
}

void SleepTimer::Ends() {
  if (minutes_ == kParagraph) Off();
}

void SleepTimer::Finish() {
  Off();
  parts_.stop();
}

}  // namespace lorelin
