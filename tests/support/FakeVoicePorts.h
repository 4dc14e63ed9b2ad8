#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ports/Checksums.h"
#include "ports/NaturalVoices.h"
#include "ports/ResumingDownloader.h"
#include "ports/VoiceArchives.h"
#include "tests/support/TemporaryFolder.h"

namespace lorelin {

// A server in memory that gives `portion` bytes at a time, and a connection that may break.
class FakeResumingDownloader final : public ResumingDownloader {
 public:
  DownloadEnd Resume(const std::string& url, const std::string& part, std::uintmax_t mostBytes,
                     const std::function<bool(std::uintmax_t)>& keepGoing) override {
    asked.push_back(url);
    const auto found = files.find(url);
    if (found == files.end()) return {DownloadEnd::Kind::Refused, "404"};
    std::string there = FileThere(part);
    resumedAt.push_back(there.size());
    while (there.size() < found->second.size()) {
      if (cutBehind && there.size() >= *cutBehind) return {cutAs, "weg"};
      there += found->second.substr(there.size(), portion);
      if (there.size() > mostBytes) return {DownloadEnd::Kind::TooLarge, ""};
      WriteFile(part, there);
      if (!keepGoing(there.size())) return {DownloadEnd::Kind::Cancelled, ""};
    }
    return {};
  }

  std::map<std::string, std::string> files;  // by address
  std::size_t portion = 4;
  std::optional<std::size_t> cutBehind;
  DownloadEnd::Kind cutAs = DownloadEnd::Kind::Cut;
  std::vector<std::string> asked;
  std::vector<std::size_t> resumedAt;

 private:
  static std::string FileThere(const std::string& path) {
    try {
      return ReadFile(path);
    } catch (...) {
      return {};
    }
  }
};

// Takes the first bytes of a file, in hexadecimal, as its checksum.
class FakeChecksums final : public Checksums {
 public:
  std::optional<std::string> OfFile(const std::string& path, ChecksumKind kind,
                                    const std::function<bool()>& keepGoing) override {
    if (!keepGoing()) return std::nullopt;
    return Of(ReadFile(path), kind);
  }
  static std::string Of(const std::string& bytes, ChecksumKind kind = ChecksumKind::Md5) {
    std::string sum;
    for (const char c : bytes.substr(0, 16)) {
      constexpr const char* kDigits = "0123456789abcdef";
      sum.append({kDigits[static_cast<unsigned char>(c) / 16], kDigits[static_cast<unsigned char>(c) % 16]});
    }
    sum.resize(kind == ChecksumKind::Md5 ? 32 : 64, '0');
    return sum;
  }
};

// Every description with "{" in front is a good one.
class FakeNaturalVoices final : public NaturalVoices {
 public:
  explicit FakeNaturalVoices(std::string folder) : folder(std::move(folder)) {}
  std::string Obstacle() const override { return obstacle; }
  bool Supported() const override { return supported; }
  std::string OwnFolder() const override { return folder; }
  std::vector<InstalledVoice> Installed() const override { return installed; }
  std::string Problem(std::string_view description) const override {
    return description.starts_with("{") ? "" : "sie ist kein JSON";
  }
  std::string folder;
  std::string obstacle;
  bool supported = true;
  std::vector<InstalledVoice> installed;
};

// Archives in memory: names and contents by the archive's path.
class FakeVoiceArchives final : public VoiceArchives {
 public:
  std::vector<std::string> Names(const std::string& archive) override {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : archives[archive]) names.push_back(name);
    return names;
  }
  std::string Extract(const std::string& archive, const std::string& name, const std::string& target,
                      std::uintmax_t mostBytes,
                      const std::function<bool(std::uintmax_t)>& keepGoing) override {
    const std::string& bytes = archives[archive][name];
    if (bytes.size() > mostBytes) return "zu groß";
    WriteFile(target, bytes);
    return keepGoing(bytes.size()) ? "" : "abgebrochen";
  }
  std::map<std::string, std::map<std::string, std::string>> archives;
};

}  // namespace lorelin
