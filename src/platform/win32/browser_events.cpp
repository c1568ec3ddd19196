#include "platform/win32/browser_events.h"

#include <exdispid.h>
#include <olectl.h>
#include <wrl/client.h>

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;

// Where the arguments of the events stand: the last one first.
constexpr UINT kBeforeNavigateUrl = 5;
constexpr UINT kBeforeNavigateCancel = 0;
constexpr UINT kNewWindow2Cancel = 0;
constexpr UINT kNewWindow3Cancel = 3;
constexpr UINT kNewWindow3Url = 0;
constexpr UINT kWindowClosingCancel = 0;

std::wstring TextOf(const DISPPARAMS& arguments, UINT index) {
  if (index >= arguments.cArgs) return {};
  const VARIANT* value = &arguments.rgvarg[index];
  if (V_VT(value) == (VT_BYREF | VT_VARIANT)) value = V_VARIANTREF(value);
  if (V_VT(value) != VT_BSTR || V_BSTR(value) == nullptr) return {};
  return {V_BSTR(value), SysStringLen(V_BSTR(value))};
}

void Cancel(const DISPPARAMS& arguments, UINT index) {
  if (index >= arguments.cArgs) return;
  VARIANT& flag = arguments.rgvarg[index];
  if (V_VT(&flag) == (VT_BYREF | VT_BOOL)) *V_BOOLREF(&flag) = VARIANT_TRUE;
}

}  // namespace

void BrowserEvents::ListenTo(IWebBrowser2& browser) {
  ComPtr<IConnectionPointContainer> sources;
  ComPtr<IConnectionPoint> source;
  DWORD cookie = 0;
  if (SUCCEEDED(browser.QueryInterface(IID_PPV_ARGS(&sources))) &&
      SUCCEEDED(sources->FindConnectionPoint(DIID_DWebBrowserEvents2, &source))) {
    source->Advise(this, &cookie);
  }
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

HRESULT BrowserEvents::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                              EXCEPINFO*, UINT*) {
  switch (event) {
    case DISPID_BEFORENAVIGATE2:
      if (!decisions_.may_load(TextOf(*arguments, kBeforeNavigateUrl))) {
        Cancel(*arguments, kBeforeNavigateCancel);
      }
      return S_OK;
    case DISPID_NEWWINDOW3:
      Cancel(*arguments, kNewWindow3Cancel);
      decisions_.new_window_wanted(TextOf(*arguments, kNewWindow3Url));
      return S_OK;
    case DISPID_NEWWINDOW2:  // From browsers before NewWindow3, which do not tell the address.
      Cancel(*arguments, kNewWindow2Cancel);
      return S_OK;
    case DISPID_WINDOWCLOSING:  // A script wants to close the window, which is not its own.
      Cancel(*arguments, kWindowClosingCancel);
      return S_OK;
    default:
      return DISP_E_MEMBERNOTFOUND;
  }
}

}  // namespace panelkit::windows
