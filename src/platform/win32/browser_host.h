// The host of the browser control: the window that it lies in, and what it asks of its container.
#pragma once

#include <windows.h>

#include <exdisp.h>
#include <mshtmhst.h>
#include <wrl/client.h>

#include <atomic>
#include <functional>

namespace panelkit::windows {

/// A container for one browser control (Shell.Explorer.2), for the length of a window's life. Made
/// with one reference; the control holds more until Close.
class BrowserHost final : public IOleClientSite,
                          public IOleInPlaceSite,
                          public IOleInPlaceFrame,
                          public IDocHostUIHandler,
                          public IDispatch {
 public:
  /// What the host asks about the pages.
  struct Questions {
    std::function<bool()> may_run_scripts;  ///< Whether the page is of the web, not the program's.
    std::function<void()> menu_opening;     ///< Called when the page's context menu opens.
  };

  /// Makes the control inside `window`, which it fills. Control() is null if the system has none.
  BrowserHost(HWND window, Questions questions);
  virtual ~BrowserHost() = default;

  IWebBrowser2* Control() const { return control_.Get(); }

  /// Gives the keyboard to the page.
  void Activate();

  /// The window has another size.
  void Resized();

  /// Makes the control ask again what it may download and run. Dialogs of its own, such as the one
  /// that prints, are for pages without scripts, which would open others.
  void RulesChanged();

  /// Stops and deactivates the control, and releases it.
  void Close();

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  // IOleClientSite
  HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
  HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow, IOleInPlaceSite
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame,
                                             IOleInPlaceUIWindow** document, LPRECT place,
                                             LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return S_OK; }

  // IOleInPlaceUIWindow, IOleInPlaceFrame
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) override {
    return INPLACE_E_NOTOOLSPACE;
  }
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  // IDocHostUIHandler
  HRESULT STDMETHODCALLTYPE ShowContextMenu(DWORD, POINT*, IUnknown*, IDispatch*) override;
  HRESULT STDMETHODCALLTYPE GetHostInfo(DOCHOSTUIINFO* info) override;
  HRESULT STDMETHODCALLTYPE ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*,
                                   IOleInPlaceFrame*, IOleInPlaceUIWindow*) override {
    return S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE HideUI() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE UpdateUI() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, const GUID*, DWORD) override {
    return S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE GetOptionKeyPath(LPOLESTR*, DWORD) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE GetDropTarget(IDropTarget*, IDropTarget**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetExternal(IDispatch** external) override;
  HRESULT STDMETHODCALLTYPE TranslateUrl(DWORD, OLECHAR*, OLECHAR** translated) override;
  HRESULT STDMETHODCALLTYPE FilterDataObject(IDataObject*, IDataObject** filtered) override;

  // IDispatch: the ambient properties.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value,
                                   EXCEPINFO*, UINT*) override;

 private:
  RECT Place() const;

  HWND window_;
  Questions questions_;
  Microsoft::WRL::ComPtr<IWebBrowser2> control_;
  std::atomic<ULONG> references_{1};
};

}  // namespace panelkit::windows
