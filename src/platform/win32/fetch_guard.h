// Keeps a page from fetching what it must not, below the browser control.
#pragma once

#include <windows.h>

#include <urlmon.h>
#include <wrl/client.h>

#include <functional>
#include <memory>
#include <string>

namespace panelkit::windows {

/// While it is on, `may_fetch` decides on every address of a file, a library's resource, a help
/// archive, http, https or ftp that this process asks urlmon.dll for (by temporary namespace
/// handlers, IInternetSession): what it refuses is answered as a resource that is not there, before
/// any file or connection is opened.
class FetchGuard {
 public:
  explicit FetchGuard(std::function<bool(const std::wstring& address)> may_fetch);
  ~FetchGuard() { TurnOff(); }
  FetchGuard(const FetchGuard&) = delete;
  FetchGuard& operator=(const FetchGuard&) = delete;

  /// Off at first. `page` is an address that may be fetched: where urlmon.dll cannot go on from
  /// here to the system's own handler for it, files and resources are left alone. Does nothing on a
  /// system without urlmon.dll's sessions.
  void TurnOn(const std::wstring& page);
  void TurnOff();

 private:
  Microsoft::WRL::ComPtr<IClassFactory> handlers_;
  Microsoft::WRL::ComPtr<IInternetSession> session_;  ///< Held while on.
};

}  // namespace panelkit::windows
