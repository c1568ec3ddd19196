// Who would hear of what a page should not load.
#pragma once

#include <windows.h>

#include <doctest/doctest.h>
#include <winsock2.h>

#include <string>

namespace panelkit::test {

/// A socket that listens on the loopback address.
struct Listener {
  Listener() {
    WSADATA data;
    WSAStartup(MAKEWORD(2, 2), &data);
    socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    REQUIRE(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0);
    listen(socket, 5);
    u_long non_blocking = 1;
    ioctlsocket(socket, FIONBIO, &non_blocking);
    int size = sizeof address;
    getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    url = L"http://127.0.0.1:" + std::to_wstring(ntohs(address.sin_port)) + L"/x.gif";
  }
  ~Listener() {
    closesocket(socket);
    WSACleanup();
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  bool SawConnection() const { return accept(socket, nullptr, nullptr) != INVALID_SOCKET; }

  SOCKET socket;
  std::wstring url;
};

}  // namespace panelkit::test
