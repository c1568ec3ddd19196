#include "platform/win32/browser_document.h"

#include <ocidl.h>
#include <ole2.h>
#include <wrl/client.h>

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;

/// A value of OLE, freed at its end.
struct OleValue : VARIANT {
  OleValue() : VARIANT{} { VariantInit(this); }
  ~OleValue() { VariantClear(this); }
  OleValue(const OleValue&) = delete;
  OleValue& operator=(const OleValue&) = delete;
};

/// Reads a property by its name; VT_EMPTY if there is none.
void Get(IDispatch* object, std::wstring name, OleValue& value) {
  LPOLESTR names = name.data();
  DISPID property = 0;
  DISPPARAMS none{};
  if (object == nullptr ||
      FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_SYSTEM_DEFAULT, &property))) {
    return;
  }
  object->Invoke(property, IID_NULL, LOCALE_SYSTEM_DEFAULT, DISPATCH_PROPERTYGET, &none, &value,
                 nullptr, nullptr);
}

}  // namespace

std::wstring ActiveLink(IWebBrowser2& browser) {
  ComPtr<IDispatch> document;
  OleValue element;
  OleValue address;
  browser.get_Document(&document);
  Get(document.Get(), L"activeElement", element);
  if (V_VT(&element) == VT_DISPATCH) Get(V_DISPATCH(&element), L"href", address);
  if (V_VT(&address) != VT_BSTR || V_BSTR(&address) == nullptr) return {};
  return {V_BSTR(&address), SysStringLen(V_BSTR(&address))};
}

bool LoadPage(IUnknown* document, std::string_view page) {
  ComPtr<IPersistStreamInit> content;
  ComPtr<IStream> bytes;
  return document != nullptr && SUCCEEDED(document->QueryInterface(IID_PPV_ARGS(&content))) &&
         SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, &bytes)) &&
         SUCCEEDED(bytes->Write(page.data(), static_cast<ULONG>(page.size()), nullptr)) &&
         SUCCEEDED(bytes->Seek({}, STREAM_SEEK_SET, nullptr)) && SUCCEEDED(content->InitNew()) &&
         SUCCEEDED(content->Load(bytes.Get()));
}

}  // namespace panelkit::windows
