#include "platform/win32/browser_host.h"

#include <mshtmdid.h>

#include <utility>

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;

/// What a page file may do: show its text and pictures. No DLCTL_VIDEOS and DLCTL_BGSOUNDS.
constexpr LONG kForPageFiles = DLCTL_DLIMAGES | DLCTL_NO_SCRIPTS | DLCTL_NO_JAVA |
                               DLCTL_NO_RUNACTIVEXCTLS | DLCTL_NO_DLACTIVEXCTLS |
                               DLCTL_NO_FRAMEDOWNLOAD | DLCTL_NO_BEHAVIORS | DLCTL_NO_CLIENTPULL |
                               DLCTL_FORCEOFFLINE;

/// What a web page may do; controls only those of the user's that are there.
constexpr LONG kForTheWeb =
    DLCTL_DLIMAGES | DLCTL_VIDEOS | DLCTL_BGSOUNDS | DLCTL_NO_DLACTIVEXCTLS | DLCTL_SILENT;

}  // namespace

BrowserHost::BrowserHost(HWND window, Questions questions)
    : window_(window), questions_(std::move(questions)) {
  ComPtr<IOleObject> object;
  if (FAILED(CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER,
                              IID_PPV_ARGS(&control_))) ||
      FAILED(control_.As(&object))) {
    control_.Reset();
    return;
  }
  const RECT place = Place();
  object->SetClientSite(this);
  object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, window_, &place);
}

void BrowserHost::Activate() {
  ComPtr<IOleObject> object;
  const RECT place = Place();
  if (SUCCEEDED(control_.As(&object))) {
    object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, this, 0, window_, &place);
  }
}

void BrowserHost::Resized() {
  ComPtr<IOleInPlaceObject> in_place;
  const RECT place = Place();
  if (control_ != nullptr && SUCCEEDED(control_.As(&in_place))) {
    in_place->SetObjectRects(&place, &place);
  }
}

void BrowserHost::RulesChanged() {
  ComPtr<IOleControl> control;
  if (control_ == nullptr) return;
  control_->put_Silent(questions_.may_run_scripts() ? VARIANT_TRUE : VARIANT_FALSE);
  if (SUCCEEDED(control_.As(&control))) control->OnAmbientPropertyChange(DISPID_AMBIENT_DLCONTROL);
}

void BrowserHost::Close() {
  ComPtr<IOleObject> object;
  ComPtr<IOleInPlaceObject> in_place;
  if (control_ != nullptr) control_->Stop();
  if (SUCCEEDED(control_.As(&in_place))) in_place->InPlaceDeactivate();
  if (SUCCEEDED(control_.As(&object))) {
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
  }
  control_.Reset();
  questions_ = {};
}

RECT BrowserHost::Place() const {
  RECT place{};
  GetClientRect(window_, &place);
  return place;
}

HRESULT BrowserHost::QueryInterface(REFIID id, void** object) {
  *object = nullptr;
  if (id == IID_IUnknown || id == IID_IOleClientSite) *object = static_cast<IOleClientSite*>(this);
  if (id == IID_IOleWindow || id == IID_IOleInPlaceSite) {
    *object = static_cast<IOleInPlaceSite*>(this);
  }
  if (id == IID_IOleInPlaceUIWindow || id == IID_IOleInPlaceFrame) {
    *object = static_cast<IOleInPlaceFrame*>(this);
  }
  if (id == IID_IDocHostUIHandler) *object = static_cast<IDocHostUIHandler*>(this);
  if (id == IID_IDispatch) *object = static_cast<IDispatch*>(this);
  if (*object == nullptr) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

ULONG BrowserHost::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT BrowserHost::GetContainer(IOleContainer** container) {
  *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT BrowserHost::GetWindow(HWND* window) {
  *window = window_;
  return S_OK;
}

HRESULT BrowserHost::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                      LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  *frame = this;
  AddRef();
  *document = nullptr;
  *place = *clip = Place();
  info->fMDIApp = FALSE;
  info->hwndFrame = GetAncestor(window_, GA_ROOT);
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT BrowserHost::ShowContextMenu(DWORD, POINT*, IUnknown*, IDispatch*) {
  if (questions_.menu_opening) questions_.menu_opening();
  return S_FALSE;  // The control's own menu, with Print in it.
}

/// The pages' text grows with the screen's resolution.
HRESULT BrowserHost::GetHostInfo(DOCHOSTUIINFO* info) {
  info->dwFlags = DOCHOSTUIFLAG_NO3DBORDER | DOCHOSTUIFLAG_THEME | DOCHOSTUIFLAG_DPI_AWARE;
  info->dwDoubleClick = DOCHOSTUIDBLCLK_DEFAULT;
  return S_OK;
}

HRESULT BrowserHost::GetExternal(IDispatch** external) {
  *external = nullptr;
  return E_NOTIMPL;
}

HRESULT BrowserHost::TranslateUrl(DWORD, OLECHAR*, OLECHAR** translated) {
  *translated = nullptr;
  return S_FALSE;
}

HRESULT BrowserHost::FilterDataObject(IDataObject*, IDataObject** filtered) {
  *filtered = nullptr;
  return S_FALSE;
}

HRESULT BrowserHost::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT BrowserHost::Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value,
                            EXCEPINFO*, UINT*) {
  if (property != DISPID_AMBIENT_DLCONTROL || value == nullptr) return DISP_E_MEMBERNOTFOUND;
  const bool may_run = questions_.may_run_scripts && questions_.may_run_scripts();
  V_VT(value) = VT_I4;
  V_I4(value) = may_run ? kForTheWeb : kForPageFiles;
  return S_OK;
}

}  // namespace panelkit::windows
