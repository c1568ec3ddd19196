// What the browser control asks its program about.
#pragma once

#include <windows.h>

#include <exdisp.h>

#include <atomic>
#include <functional>
#include <string>

namespace panelkit::windows {

/// The decisions of the pane.
struct BrowserDecisions {
  /// Whether the pane, or a frame in it, may go to an address.
  std::function<bool(const std::wstring& address)> may_load;
  /// Told the address of each window that a page wanted to open; none is opened.
  std::function<void(const std::wstring& address)> new_window_wanted;
};

/// The receiver of the control's events (DWebBrowserEvents2). Counted by references, as the control
/// expects; made with one.
class BrowserEvents final : public IDispatch {
 public:
  explicit BrowserEvents(BrowserDecisions decisions) : decisions_(std::move(decisions)) {}
  virtual ~BrowserEvents() = default;

  /// Has `browser` send its events here, for as long as it lives.
  void ListenTo(IWebBrowser2& browser);

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
  BrowserDecisions decisions_;
  std::atomic<ULONG> references_{1};
};

}  // namespace panelkit::windows
