#include "platform/common/soundTags.h"

#include <taglib/chapterframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/opusfile.h>
#include <taglib/tableofcontentsframe.h>
#include <taglib/textidentificationframe.h>
#include <taglib/vorbisfile.h>
#include <taglib/xiphcomment.h>

#include <array>
#include <cstdio>
#include <string_view>
#include <utility>

#include "base/clockTime.h"

namespace lorelin {
namespace {

using std::chrono::milliseconds;

TagLib::String Utf8(const std::string& text) {
  return {text, TagLib::String::UTF8};
}

// ISO 639-2, as ID3 wants it; "" for a language that few books are in.
std::string ThreeLetters(std::string_view language) {
  constexpr std::array<std::pair<std::string_view, const char*>, 14> kLanguages{{{"de", "deu"},
                                                                                 {"en", "eng"},
                                                                                 {"fr", "fra"},
                                                                                 {"it", "ita"},
                                                                                 {"es", "spa"},
                                                                                 {"nl", "nld"},
                                                                                 {"pl", "pol"},
                                                                                 {"pt", "por"},
                                                                                 {"sv", "swe"},
                                                                                 {"da", "dan"},
                                                                                 {"cs", "ces"},
                                                                                 {"hu", "hun"},
                                                                                 {"ru", "rus"},
                                                                                 {"tr", "tur"}}};
  for (const auto& [two, three] : kLanguages) {
    if (language.substr(0, language.find('-')) == two) return three;
  }
  return {};
}

void AddText(TagLib::ID3v2::Tag& tag, const char* frame, const std::string& text) {
  if (text.empty()) return;
  auto* const added = new TagLib::ID3v2::TextIdentificationFrame(frame, TagLib::String::UTF8);
  added->setText(Utf8(text));
  tag.addFrame(added);  // which owns it now
}

TagLib::ByteVector ElementId(std::size_t number) {
  return TagLib::ByteVector(("ch" + std::to_string(number)).c_str());
}

// Where the chapter begins and ends; the players that show chapters want both.
void AddChapter(TagLib::ID3v2::Tag& tag, const SoundTags& tags, std::size_t number) {
  constexpr unsigned int kNoOffset = 0xFFFFFFFFU;
  const auto& chapters = tags.chapters;
  const milliseconds end = number + 1 < chapters.size() ? chapters[number + 1].begin : tags.length;
  auto* const chapter = new TagLib::ID3v2::ChapterFrame(
      ElementId(number), static_cast<unsigned int>(chapters[number].begin.count()),
      static_cast<unsigned int>(end.count()), kNoOffset, kNoOffset);
  auto* const title = new TagLib::ID3v2::TextIdentificationFrame("TIT2", TagLib::String::UTF8);
  title->setText(Utf8(chapters[number].title));
  chapter->addEmbeddedFrame(title);
  tag.addFrame(chapter);
}

void AddContents(TagLib::ID3v2::Tag& tag, const SoundTags& tags) {
  // The count of a table is one byte; further chapters are chapters all the same.
  constexpr std::size_t kMostInTable = 255;
  TagLib::ByteVectorList children;
  for (std::size_t i = 0; i < tags.chapters.size() && i < kMostInTable; ++i) children.append(ElementId(i));
  auto* const table = new TagLib::ID3v2::TableOfContentsFrame("toc", children);
  table->setIsTopLevel(true);
  table->setIsOrdered(true);
  tag.addFrame(table);
  for (std::size_t i = 0; i < tags.chapters.size(); ++i) AddChapter(tag, tags, i);
}

bool WriteId3(const std::filesystem::path& file, const SoundTags& tags) {
  TagLib::MPEG::File mpeg(file.c_str(), false);
  if (!mpeg.isValid()) return false;
  TagLib::ID3v2::Tag& tag = *mpeg.ID3v2Tag(true);
  AddText(tag, "TIT2", tags.title);
  AddText(tag, "TPE1", tags.author);
  AddText(tag, "TALB", tags.album);
  AddText(tag, "TLAN", ThreeLetters(tags.language));
  if (tags.track > 0) AddText(tag, "TRCK", std::to_string(tags.track) + "/" + std::to_string(tags.tracks));
  if (!tags.chapters.empty()) AddContents(tag, tags);
  return tag.isEmpty() || mpeg.save(TagLib::MPEG::File::ID3v2);
}

void AddField(TagLib::Ogg::XiphComment& comment, const char* name, const std::string& value) {
  if (!value.empty()) comment.addField(name, Utf8(value));
}

void AddChapters(TagLib::Ogg::XiphComment& comment, const std::vector<SoundChapter>& chapters) {
  for (std::size_t i = 0; i < chapters.size(); ++i) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "CHAPTER%03zu", i + 1);
    comment.addField(name.data(), Utf8(ClockTime(chapters[i].begin, 2)));
    comment.addField(std::string(name.data()) + "NAME", Utf8(chapters[i].title));
  }
}

void FillComment(TagLib::Ogg::XiphComment& comment, const SoundTags& tags) {
  AddField(comment, "TITLE", tags.title);
  AddField(comment, "ARTIST", tags.author);
  AddField(comment, "ALBUM", tags.album);
  AddField(comment, "LANGUAGE", tags.language);
  if (tags.track > 0) {
    AddField(comment, "TRACKNUMBER", std::to_string(tags.track));
    AddField(comment, "TRACKTOTAL", std::to_string(tags.tracks));
  }
  AddChapters(comment, tags.chapters);
}

template <typename File>
bool WriteComment(const std::filesystem::path& name, const SoundTags& tags) {
  File file(name.c_str(), false);
  if (!file.isValid()) return false;
  FillComment(*file.tag(), tags);
  return file.save();
}

bool WriteFlacComment(const std::filesystem::path& name, const SoundTags& tags) {
  TagLib::FLAC::File file(name.c_str(), false);
  if (!file.isValid()) return false;
  FillComment(*file.xiphComment(true), tags);
  return file.save();
}

}  // namespace

bool WriteSoundTags(const std::filesystem::path& file, SoundFormat format, const SoundTags& tags) {
  switch (format) {
    case SoundFormat::Mp3:
      return WriteId3(file, tags);
    case SoundFormat::Opus:
      return WriteComment<TagLib::Ogg::Opus::File>(file, tags);
    case SoundFormat::Vorbis:
      return WriteComment<TagLib::Ogg::Vorbis::File>(file, tags);
    default:
      return WriteFlacComment(file, tags);
  }
}

std::size_t RoomForSoundTags(const SoundTags& tags) {
  constexpr std::size_t kPadding = 3U << 19;
  std::size_t bytes = kPadding + 2 * (tags.title.size() + tags.author.size() + tags.album.size());
  for (const SoundChapter& chapter : tags.chapters) bytes += 200 + 2 * chapter.title.size();
  return bytes;
}

}  // namespace lorelin
