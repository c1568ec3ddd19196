#include "platform/win32/fetch_guard.h"

#include <array>
#include <atomic>
#include <utility>

#include "platform/windows/system_library.h"

namespace panelkit::windows {
namespace {

using Microsoft::WRL::ComPtr;
using MayFetch = std::function<bool(const std::wstring& address)>;

constexpr const wchar_t* kFile = L"file";
constexpr const wchar_t* kResource = L"res";
constexpr std::array kSchemes{kFile,  kResource, L"http", L"https",
                              L"ftp", L"mk",     L"its",  L"ms-its"};

/// Of this handler, made up for it.
constexpr CLSID kGuardClass = {
    0x6c0b3a52, 0x8f0e, 0x4d55, {0x9a, 0x71, 0x1f, 0x1d, 0x5e, 0x0c, 0x2b, 0x84}};

/// One request. It never serves anything: it refuses, or leaves the request to the system's own
/// handler, for which urlmon.dll wants it to be aggregatable.
class GuardedRequest final : public IInternetProtocol {
 public:
  GuardedRequest(std::shared_ptr<const MayFetch> may_fetch, IUnknown* outer)
      : may_fetch_(std::move(may_fetch)), outer_(outer != nullptr ? outer : &own_) {}
  virtual ~GuardedRequest() = default;

  /// The object's own IUnknown, with one reference.
  IUnknown* Own() { return &own_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    return outer_->QueryInterface(id, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return outer_->AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return outer_->Release(); }

  HRESULT STDMETHODCALLTYPE Start(LPCWSTR url, IInternetProtocolSink*, IInternetBindInfo*, DWORD,
                                  HANDLE_PTR) override {
    return (*may_fetch_)(url) ? INET_E_USE_DEFAULT_PROTOCOLHANDLER : INET_E_RESOURCE_NOT_FOUND;
  }
  HRESULT STDMETHODCALLTYPE Continue(PROTOCOLDATA*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Abort(HRESULT, DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Terminate(DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Suspend() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Resume() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Read(void*, ULONG, ULONG* read) override {
    if (read != nullptr) *read = 0;
    return S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER, DWORD, ULARGE_INTEGER*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE LockRequest(DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE UnlockRequest() override { return S_OK; }

 private:
  /// Lives as long as its own references; an outer object, if there is one, holds it by them.
  struct OwnUnknown final : IUnknown {
    explicit OwnUnknown(GuardedRequest& its_request) : request(its_request) {}
    virtual ~OwnUnknown() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
      *object = nullptr;
      if (id == IID_IUnknown) *object = static_cast<IUnknown*>(this);
      if (id == IID_IInternetProtocolRoot || id == IID_IInternetProtocol) {
        *object = static_cast<IInternetProtocol*>(&request);
      }
      if (*object == nullptr) return E_NOINTERFACE;
      static_cast<IUnknown*>(*object)->AddRef();
      return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
      const ULONG left = --references;
      if (left == 0) delete &request;
      return left;
    }
    GuardedRequest& request;
    std::atomic<ULONG> references{1};
  };

  std::shared_ptr<const MayFetch> may_fetch_;
  OwnUnknown own_{*this};
  IUnknown* outer_;
};

/// Makes the requests. Made without a reference.
class RequestFactory final : public IClassFactory {
 public:
  explicit RequestFactory(MayFetch may_fetch)
      : may_fetch_(std::make_shared<const MayFetch>(std::move(may_fetch))) {}
  virtual ~RequestFactory() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    *object = nullptr;
    if (outer != nullptr && id != IID_IUnknown) return CLASS_E_NOAGGREGATION;
    auto* request = new GuardedRequest(may_fetch_, outer);
    const HRESULT result = request->Own()->QueryInterface(id, object);
    request->Own()->Release();
    return result;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  std::shared_ptr<const MayFetch> may_fetch_;
  std::atomic<ULONG> references_{0};
};

}  // namespace

FetchGuard::FetchGuard(MayFetch may_fetch) {
  handlers_ = new RequestFactory(std::move(may_fetch));
}

void FetchGuard::TurnOn(const std::wstring& page) {
  const auto get_session = SystemCall<HRESULT WINAPI(DWORD, IInternetSession**, DWORD)>(
      L"urlmon.dll", "CoInternetGetSession");
  const auto open = SystemCall<HRESULT WINAPI(IUnknown*, LPCWSTR, IStream**, DWORD, void*)>(
      L"urlmon.dll", "URLOpenBlockingStreamW");
  if (session_ != nullptr || get_session == nullptr || open == nullptr ||
      FAILED(get_session(0, &session_, 0))) {
    return;
  }
  for (const wchar_t* scheme : kSchemes) {
    session_->RegisterNameSpace(handlers_.Get(), kGuardClass, scheme, 0, nullptr, 0);
  }
  ComPtr<IStream> opened;
  if (open(nullptr, page.c_str(), &opened, 0, nullptr) == INET_E_USE_DEFAULT_PROTOCOLHANDLER) {
    for (const wchar_t* scheme : {kFile, kResource}) {
      session_->UnregisterNameSpace(handlers_.Get(), scheme);
    }
  }
}

void FetchGuard::TurnOff() {
  if (session_ == nullptr) return;
  for (const wchar_t* scheme : kSchemes) session_->UnregisterNameSpace(handlers_.Get(), scheme);
  session_.Reset();
}

}  // namespace panelkit::windows
