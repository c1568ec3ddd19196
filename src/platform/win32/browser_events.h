// What the browser control asks its program about.
#pragma once

#include <windows.h>

#include <exdisp.h>
#include <ocidl.h>
#include <wrl/client.h>

#include <atomic>
#include <functional>
#include <string>

namespace panelkit::windows {

/// The decisions of the pane.
struct BrowserDecisions {
  /// Whether the pane, or a frame in it, may go to an address.
  std::function<bool(const std::wstring& address, bool is_main_frame)> may_go;
  /// Called for each window that a page asked to open, with its address and whether the user's own
  /// click led to it; none is opened. The address is empty if the control does not report it
  /// (before Windows XP Service Pack 2).
  std::function<void(const std::wstring& address, bool user_acted)> new_window_wanted;
  /// The pane itself shows a new page, that at `address`.
  std::function<void(const std::wstring& address)> has_come;
  /// The document at `address` has been loaded into the pane itself.
  std::function<void(const std::wstring& address)> loaded;
  /// The page at `address` could not be fetched; true if the pane shows what is to be said of it in
  /// place of the control.
  std::function<bool(const std::wstring& address)> has_failed;
  /// A download has come to an end: of the page under way, where the control is not busy any more.
  std::function<void()> download_ended;
};

/// The receiver of the control's events (DWebBrowserEvents2). Counted by references, as the control
/// expects; made without one.
class BrowserEvents final : public IDispatch {
 public:
  explicit BrowserEvents(BrowserDecisions decisions) : decisions_(std::move(decisions)) {}
  virtual ~BrowserEvents() = default;

  /// Has `browser` send its events here until StopListening.
  void ListenTo(IWebBrowser2& browser);
  void StopListening();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                   VARIANT*, EXCEPINFO*, UINT*) override;

 private:
  bool IsMainFrame(const DISPPARAMS& arguments, UINT frame_index) const;

  BrowserDecisions decisions_;
  Microsoft::WRL::ComPtr<IConnectionPoint> source_;  ///< Null while nothing is listened to.
  Microsoft::WRL::ComPtr<IUnknown> main_frame_;
  DWORD cookie_ = 0;
  bool downloads_ = false;  ///< Something has begun since the pane itself was sent to a page.
  std::atomic<ULONG> references_{0};
};

}  // namespace panelkit::windows
