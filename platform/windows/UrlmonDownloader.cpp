#include "platform/windows/UrlmonDownloader.h"

#include <windows.h>
// the others need windows.h before them
#include <urlmon.h>
#include <wininet.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <limits>
#include <memory>
#include <mutex>
#include <thread>

#include "base/RuntimeError.h"
#include "base/contentType.h"
#include "base/paths.h"
#include "base/text.h"
#include "platform/common/AtomicFileWriter.h"
#include "platform/windows/systemErrors.h"
#include "platform/windows/wideText.h"

namespace lorelin {
namespace {

constexpr auto kTurn = std::chrono::milliseconds(20);

// The address without name and password.
std::string PublicAddress(const std::string& url) {
  const auto authority = url.find("//");
  if (authority == std::string::npos) return url;
  const auto end = url.find_first_of("/?#", authority + 2);
  const auto at = url.substr(0, end).rfind('@');
  return at == std::string::npos || at < authority ? url : url.substr(0, authority + 2) + url.substr(at + 1);
}

bool IsWebAddress(const std::string& url) {
  const std::string lower = LowerAscii(url);
  return lower.starts_with("http://") || lower.starts_with("https://");
}

// A name in the system's folder for temporary files that every code page can spell.
std::wstring TemporaryFile() {
  std::wstring folder(MAX_PATH + 1, L'\0');
  folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
  std::wstring shorter(MAX_PATH + 1, L'\0');
  const DWORD length = GetShortPathNameW(folder.c_str(), shorter.data(), static_cast<DWORD>(shorter.size()));
  if (length > 0 && length < shorter.size()) folder = shorter.substr(0, length);
  std::wstring file(MAX_PATH + 1, L'\0');
  if (GetTempFileNameW(folder.c_str(), L"lor", 0, file.data()) == 0) return {};
  file.resize(file.find(L'\0'));
  return file;
}

// What stands behind this name, in lower case and with its colon, in the head of an answer.
std::string HeaderOf(const std::string& head, std::string_view name) {
  const std::string lines = "\n" + LowerAscii(head);
  const std::size_t at = lines.find("\n" + std::string(name));
  if (at == std::string::npos) return {};
  const std::size_t begin = at + 1 + name.size();
  return lines.substr(begin, lines.find_first_of("\r\n", begin) - begin);
}

// What the caller and the thread share; it outlives the caller while a silent server holds up the thread.
class Transfer final : public IBindStatusCallback, public IHttpNegotiate {
 public:
  Transfer(std::string url, std::wstring file, std::uintmax_t mostBytes)
      : url_(std::move(url)), file_(std::move(file)), mostBytes_(mostBytes) {}
  virtual ~Transfer() { DeleteFileW(file_.c_str()); }

  void Run() {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    const std::string url = SystemCodePage(url_);
    DeleteUrlCacheEntryA(url.c_str());
    const HRESULT result =
        URLDownloadToFileA(nullptr, url.c_str(), SystemCodePage(Utf8(file_)).c_str(), 0, this);
    CoUninitialize();
    const std::lock_guard guard(mutex_);
    result_ = result;
    done_ = true;
    ended_.notify_all();
  }
  bool WaitForEnd(std::chrono::milliseconds time) {
    std::unique_lock guard(mutex_);
    return ended_.wait_for(guard, time, [this] { return done_; });
  }
  void Cancel() { cancelled_ = true; }
  [[nodiscard]] HRESULT Result() {
    const std::lock_guard guard(mutex_);
    return result_;
  }
  [[nodiscard]] DWORD Status() const { return status_; }
  [[nodiscard]] const std::wstring& File() const { return file_; }
  [[nodiscard]] bool TooLarge() const { return tooLarge_; }
  // What the server said of what it sent.
  [[nodiscard]] std::string ContentType() {
    const std::lock_guard guard(mutex_);
    return contentType_;
  }

  // The thread's reference and the caller's are counted by shared pointers; urlmon's end within Run.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IBindStatusCallback)
      *object = static_cast<IBindStatusCallback*>(this);
    if (id == IID_IHttpNegotiate) *object = static_cast<IHttpNegotiate*>(this);
    return *object != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE OnStartBinding(DWORD, IBinding*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetPriority(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnLowResource(DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnProgress(ULONG there, ULONG all, ULONG, LPCWSTR) override {
    if (there > mostBytes_ || all > mostBytes_) tooLarge_ = true;
    return cancelled_ || tooLarge_ ? E_ABORT : S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnStopBinding(HRESULT, LPCWSTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetBindInfo(DWORD* flags, BINDINFO*) override {
    *flags = BINDF_GETNEWESTVERSION | BINDF_NOWRITECACHE;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnDataAvailable(DWORD, DWORD, FORMATETC*, STGMEDIUM*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnObjectAvailable(REFIID, IUnknown*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE BeginningTransaction(LPCWSTR, LPCWSTR, DWORD, LPWSTR*) override { return S_OK; }
  // A server's page about what it does not have is not what was asked for.
  HRESULT STDMETHODCALLTYPE OnResponse(DWORD code, LPCWSTR headers, LPCWSTR, LPWSTR*) override {
    status_ = code;
    const std::lock_guard guard(mutex_);
    contentType_ = headers != nullptr ? HeaderOf(Utf8(headers), "content-type:") : std::string();
    return S_OK;
  }

 private:
  std::string url_;
  std::wstring file_;
  const std::uintmax_t mostBytes_;
  std::atomic<bool> cancelled_{false};
  std::atomic<bool> tooLarge_{false};
  std::atomic<DWORD> status_{0};  // of HTTP; 0 when it was not told
  std::mutex mutex_;
  std::condition_variable ended_;
  bool done_ = false;
  HRESULT result_ = E_PENDING;
  std::string contentType_;
};

// Ends the transfer when its caller leaves, in whatever way.
class Cancelling {
 public:
  explicit Cancelling(Transfer& transfer) : transfer_(transfer) {}
  ~Cancelling() { transfer_.Cancel(); }
  Cancelling(const Cancelling&) = delete;
  Cancelling& operator=(const Cancelling&) = delete;

 private:
  Transfer& transfer_;
};

}  // namespace

std::string UrlmonDownloader::Download(const std::string& url, const std::string& targetFile,
                                       const std::function<bool()>& keepGoing) {
  return FetchPage(url, targetFile, std::numeric_limits<std::uintmax_t>::max(), keepGoing).problem;
}

Downloader::Page UrlmonDownloader::FetchPage(const std::string& url, const std::string& targetFile,
                                             std::uintmax_t mostBytes,
                                             const std::function<bool()>& keepGoing) {
  const auto fail = [&](std::string reason, bool tooLarge = false) {
    log_.Write("Download " + PublicAddress(url) + " nach " + targetFile + ": " + reason);
    return Page{.problem = std::move(reason), .tooLarge = tooLarge, .charset = {}};
  };
  if (!IsWebAddress(url)) return fail("keine Adresse im Web");
  if (targetFile.empty()) return fail("kein Dateiname");
  const std::wstring file = TemporaryFile();
  if (file.empty()) return fail(SystemErrorText(GetLastError()));
  const auto transfer = std::make_shared<Transfer>(url, file, mostBytes);
  const Cancelling cancelling(*transfer);
  std::thread([transfer] { transfer->Run(); }).detach();
  do {
    if (!keepGoing()) return fail("abgebrochen");
  } while (!transfer->WaitForEnd(kTurn));
  if (transfer->TooLarge()) return fail("zu groß", true);
  if (const HRESULT result = transfer->Result(); FAILED(result)) {
    return fail(SystemErrorText(static_cast<unsigned long>(result)));
  }
  constexpr DWORD kFirstFailure = 400;
  if (transfer->Status() >= kFirstFailure) return fail("HTTP " + std::to_string(transfer->Status()));
  try {
    AtomicFileWriter().Copy(Utf8(file), targetFile, [](double) { return true; });
  } catch (const RuntimeError& error) {
    return fail(error.what());
  }
  return {.problem = {}, .charset = CharsetOfContentType(transfer->ContentType())};
}

}  // namespace lorelin
