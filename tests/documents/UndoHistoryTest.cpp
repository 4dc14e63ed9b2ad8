#include "documents/UndoHistory.h"

#include <gtest/gtest.h>

#include "base/textEncoding.h"

namespace lorelin {
namespace {

// A text whose changes are recorded, like an editor's.
class Undo : public testing::Test {
 protected:
  void Insert(std::size_t position, const std::string& piece) {
    history.Inserted(position, piece);
    Apply({.position = position, .removed = {}, .inserted = piece});
  }
  void Remove(std::size_t position, const std::string& piece) {
    history.Removed(position, piece);
    Apply({.position = position, .removed = piece, .inserted = {}});
  }
  void Type(const std::string& piece) {
    for (const char c : piece) Insert(CharacterCount(text), std::string(1, c));
  }
  void TakeBack() {
    for (const TextEdit& edit : history.Undo()) Apply(edit);
  }
  void Repeat() {
    for (const TextEdit& edit : history.Redo()) Apply(edit);
  }

  UndoHistory history;
  std::string text;

 private:
  void Apply(const TextEdit& edit) {
    const std::size_t at = text.size() - FromCharacter(text, edit.position).size();
    ASSERT_EQ(text.substr(at, edit.removed.size()), edit.removed);
    text.replace(at, edit.removed.size(), edit.inserted);
  }
};

TEST_F(Undo, TakesBackWordByWord) {
  Type("Guten Tag");
  TakeBack();
  EXPECT_EQ(text, "Guten ");
  TakeBack();
  EXPECT_EQ(text, "");
  EXPECT_FALSE(history.CanUndo());
  Repeat();
  Repeat();
  EXPECT_EQ(text, "Guten Tag");
  EXPECT_FALSE(history.CanRedo());
}

TEST_F(Undo, TakesBackWhatWasErasedInOneGo) {
  Insert(0, "Hallo");
  Remove(4, "o");
  Remove(3, "l");
  TakeBack();
  EXPECT_EQ(text, "Hallo");
  TakeBack();
  EXPECT_EQ(text, "");
}

TEST_F(Undo, TakesAPastedTextForOneChange) {
  Type("a");
  Insert(1, "lang und breit");
  TakeBack();
  EXPECT_EQ(text, "a");
}

TEST_F(Undo, KeepsTogetherWhatBelongsTogether) {
  Insert(0, "alt");
  history.Begin();
  Remove(0, "alt");
  Insert(0, "neu");
  Insert(3, "er");
  history.End();
  TakeBack();
  EXPECT_EQ(text, "alt");
  Repeat();
  EXPECT_EQ(text, "neuer");
}

TEST_F(Undo, ForgetsWhatWasTakenBackOnceSomethingElseIsDone) {
  Insert(0, "eins");
  TakeBack();
  Insert(0, "zwei");
  EXPECT_FALSE(history.CanRedo());
  TakeBack();
  EXPECT_EQ(text, "");
}

TEST_F(Undo, CountsCharacters) {
  Insert(0, "äöü");
  Insert(3, "🎉");
  Remove(1, "ö");
  TakeBack();
  TakeBack();
  EXPECT_EQ(text, "äöü");
}

TEST_F(Undo, ForgetsTheOldestWhenItIsTooMuch) {
  history = UndoHistory(1000);
  for (int i = 0; i < 10; ++i) Insert(0, std::string(200, 'x'));
  int taken = 0;
  while (history.CanUndo()) {
    TakeBack();
    ++taken;
  }
  EXPECT_GT(taken, 0);
  EXPECT_LT(taken, 10);
  Insert(0, std::string(5000, 'y'));
  EXPECT_FALSE(history.CanUndo());
}

}  // namespace
}  // namespace lorelin
