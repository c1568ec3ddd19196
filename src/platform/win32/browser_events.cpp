#include "platform/win32/browser_events.h"

#include <exdispid.h>
#include <shobjidl.h>

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;

// Where the arguments of the events stand: the last one first.
constexpr UINT kBeforeNavigateFrame = 6;
constexpr UINT kBeforeNavigateUrl = 5;
constexpr UINT kBeforeNavigateCancel = 0;
constexpr UINT kCompleteFrame = 1;  // NavigateComplete2 and DocumentComplete.
constexpr UINT kCompleteUrl = 0;
constexpr UINT kErrorFrame = 4;
constexpr UINT kErrorUrl = 3;
constexpr UINT kErrorStatus = 1;
constexpr UINT kErrorCancel = 0;
constexpr UINT kNewWindow2Cancel = 0;
constexpr UINT kNewWindow3Cancel = 3;
constexpr UINT kNewWindow3Flags = 2;
constexpr UINT kNewWindow3Url = 0;
constexpr UINT kWindowClosingCancel = 0;

std::wstring TextOf(const DISPPARAMS& arguments, UINT index) {
  if (index >= arguments.cArgs) return {};
  const VARIANT* value = &arguments.rgvarg[index];
  if (V_VT(value) == (VT_BYREF | VT_VARIANT)) value = V_VARIANTREF(value);
  if (V_VT(value) != VT_BSTR || V_BSTR(value) == nullptr) return {};
  return {V_BSTR(value), SysStringLen(V_BSTR(value))};
}

LONG NumberOf(const DISPPARAMS& arguments, UINT index) {
  if (index >= arguments.cArgs) return 0;
  const VARIANT* value = &arguments.rgvarg[index];
  if (V_VT(value) == (VT_BYREF | VT_VARIANT)) value = V_VARIANTREF(value);
  return V_VT(value) == VT_I4 || V_VT(value) == VT_UI4 ? V_I4(value) : 0;
}

void Cancel(const DISPPARAMS& arguments, UINT index) {
  if (index >= arguments.cArgs) return;
  VARIANT& flag = arguments.rgvarg[index];
  if (V_VT(&flag) == (VT_BYREF | VT_BOOL)) *V_BOOLREF(&flag) = VARIANT_TRUE;
}

}  // namespace

void BrowserEvents::ListenTo(IWebBrowser2& browser) {
  ComPtr<IConnectionPointContainer> sources;
  browser.QueryInterface(IID_PPV_ARGS(&main_frame_));
  if (SUCCEEDED(browser.QueryInterface(IID_PPV_ARGS(&sources))) &&
      SUCCEEDED(sources->FindConnectionPoint(DIID_DWebBrowserEvents2, &source_))) {
    source_->Advise(this, &cookie_);
  }
}

void BrowserEvents::StopListening() {
  if (source_ != nullptr) source_->Unadvise(cookie_);
  source_.Reset();
  main_frame_.Reset();
  decisions_ = {};
}

HRESULT BrowserEvents::QueryInterface(REFIID id, void** object) {
  const bool known = id == IID_IUnknown || id == IID_IDispatch || id == DIID_DWebBrowserEvents2;
  *object = known ? static_cast<IDispatch*>(this) : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG BrowserEvents::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT BrowserEvents::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

/// An event that names no frame is taken for the main frame's.
bool BrowserEvents::IsMainFrame(const DISPPARAMS& arguments, UINT frame_index) const {
  if (frame_index >= arguments.cArgs) return true;
  const VARIANT& frame = arguments.rgvarg[frame_index];
  ComPtr<IUnknown> identity;
  if (V_VT(&frame) != VT_DISPATCH || V_DISPATCH(&frame) == nullptr) return true;
  V_DISPATCH(&frame)->QueryInterface(IID_PPV_ARGS(&identity));
  return identity.Get() == main_frame_.Get();
}

HRESULT BrowserEvents::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                              EXCEPINFO*, UINT*) {
  if (decisions_.may_go == nullptr) return DISP_E_MEMBERNOTFOUND;
  switch (event) {
    case DISPID_BEFORENAVIGATE2: {
      const bool is_main_frame = IsMainFrame(*arguments, kBeforeNavigateFrame);
      if (!decisions_.may_go(TextOf(*arguments, kBeforeNavigateUrl), is_main_frame)) {
        Cancel(*arguments, kBeforeNavigateCancel);
      } else if (is_main_frame) {
        downloads_ = false;
      }
      return S_OK;
    }
    case DISPID_NAVIGATECOMPLETE2:
      if (IsMainFrame(*arguments, kCompleteFrame)) {
        decisions_.has_come(TextOf(*arguments, kCompleteUrl));
      }
      return S_OK;
    case DISPID_DOCUMENTCOMPLETE:
      if (IsMainFrame(*arguments, kCompleteFrame)) {
        decisions_.loaded(TextOf(*arguments, kCompleteUrl));
      }
      return S_OK;
    case DISPID_NAVIGATEERROR:
      // A server's own error page, whose status is positive, is shown.
      // An aborted load has given way to another.
      if (const LONG status = NumberOf(*arguments, kErrorStatus);
          IsMainFrame(*arguments, kErrorFrame) && status < 0 && status != E_ABORT &&
          decisions_.has_failed(TextOf(*arguments, kErrorUrl))) {
        Cancel(*arguments, kErrorCancel);
      }
      return S_OK;
    case DISPID_DOWNLOADBEGIN:
      downloads_ = true;
      return S_OK;
    case DISPID_DOWNLOADCOMPLETE:
      if (downloads_) decisions_.download_ended();
      return S_OK;
    case DISPID_NEWWINDOW3: {
      Cancel(*arguments, kNewWindow3Cancel);
      const LONG flags = NumberOf(*arguments, kNewWindow3Flags);
      decisions_.new_window_wanted(TextOf(*arguments, kNewWindow3Url),
                                   (flags & (NWMF_USERINITED | NWMF_USERREQUESTED)) != 0);
      return S_OK;
    }
    case DISPID_NEWWINDOW2:  // From browsers before NewWindow3: without an address.
      Cancel(*arguments, kNewWindow2Cancel);
      decisions_.new_window_wanted({}, false);
      return S_OK;
    case DISPID_WINDOWCLOSING:  // A script wants to close the window, which is not its own.
      Cancel(*arguments, kWindowClosingCancel);
      return S_OK;
    default:
      return DISP_E_MEMBERNOTFOUND;
  }
}

}  // namespace panelkit::windows
