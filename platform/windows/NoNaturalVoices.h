#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ports/Downloader.h"
#include "ports/NaturalVoices.h"
#include "ports/ResumingDownloader.h"
#include "ports/VoiceArchives.h"

namespace lorelin {

// There is no engine for natural voices on this system yet.
class NoNaturalVoices final : public NaturalVoices {
 public:
  std::string Obstacle() const override {
    return "Natürliche Stimmen gibt es unter Windows noch nicht; sie kommen mit einer späteren Version. Bis "
           "dahin sprechen die Stimmen von Windows.";
  }
  bool Supported() const override { return false; }
  std::string OwnFolder() const override { return {}; }
  std::vector<InstalledVoice> Installed() const override { return {}; }
  std::string Problem(std::string_view) const override { return "sie wird hier nicht gelesen"; }
};

// The system's downloads cannot go on where one broke off: every attempt begins anew.
class WholeDownloads final : public ResumingDownloader {
 public:
  // Does not own the downloader, which must outlive it.
  explicit WholeDownloads(Downloader& downloader) : downloader_(downloader) {}
  DownloadEnd Resume(const std::string& url, const std::string& part, std::uintmax_t,
                     const std::function<bool(std::uintmax_t there)>& keepGoing) override {
    bool cancelled = false;
    std::string reason = downloader_.Download(url, part, [&] {
      cancelled = !keepGoing(0);
      return !cancelled;
    });
    if (reason.empty()) return {};
    return {cancelled ? DownloadEnd::Kind::Cancelled : DownloadEnd::Kind::Cut, std::move(reason)};
  }

 private:
  Downloader& downloader_;
};

class NoVoiceArchives final : public VoiceArchives {
 public:
  std::vector<std::string> Names(const std::string&) override { return {}; }
  std::string Extract(const std::string&, const std::string&, const std::string&, std::uintmax_t,
                      const std::function<bool(std::uintmax_t)>&) override {
    return "Archive werden hier nicht gelesen";
  }
};

}  // namespace lorelin
