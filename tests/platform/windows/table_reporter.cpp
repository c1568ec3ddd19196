// The reporter of the check kit: one line for each test case, in a table that a user can mail.
#include <windows.h>

#include <doctest/doctest.h>
#include <shlobj.h>

#include <filesystem>
#include <iomanip>
#include <string>

#include "platform/windows/system_library.h"
#include "platform/windows/wide.h"

namespace panelkit::test {
namespace {

std::string Version() {
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  // Not GetVersionEx, which tells programs without a manifest of an older Windows.
  const auto tell =
      windows::SystemCall<LONG WINAPI(OSVERSIONINFOW*)>(L"ntdll.dll", "RtlGetVersion");
  if (tell != nullptr) tell(&version);
  return std::to_string(version.dwMajorVersion) + '.' + std::to_string(version.dwMinorVersion) +
         '.' + std::to_string(version.dwBuildNumber);
}

std::string Locale(LCTYPE part) {
  wchar_t text[20] = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, part, text, 20);
  return windows::Utf8(text);
}

/// Whether Windows gives this process private copies of files that it may not change.
bool IsVirtualised() {
  HANDLE token = nullptr;
  DWORD enabled = 0;
  DWORD size = sizeof enabled;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return false;
  GetTokenInformation(token, TokenVirtualizationEnabled, &enabled, size, &size);
  CloseHandle(token);
  return enabled != 0;
}

std::string ThisSystem() {
  const HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  const bool is_wine = windows::FindSystemCall(L"ntdll.dll", "wine_get_version") != nullptr;
  return "Windows " + Version() + (is_wine ? " (Wine)" : "") + ", locale " +
         Locale(LOCALE_SISO639LANGNAME) + '-' + Locale(LOCALE_SISO3166CTRYNAME) + ", code page " +
         std::to_string(GetACP()) + ", scaling " + std::to_string(dots * 100 / 96) +
         " %, rights of " + (IsUserAnAdmin() ? "an administrator" : "a user") +
         (IsVirtualised() ? " with private copies" : "") + ", " +
         std::to_string(8 * sizeof(void*)) + "-bit programs";
}

/// Test cases are named after the promises that they hold.
class TableReporter : public doctest::IReporter {
 public:
  explicit TableReporter(const doctest::ContextOptions& options) : out_(*options.cout) {}

  void test_run_start() override { out_ << ThisSystem() << "\n\n"; }
  void test_case_start(const doctest::TestCaseData& test) override {
    name_ = test.m_name;
    faults_.clear();
  }
  void log_assert(const doctest::AssertData& check) override {
    if (!check.m_failed) return;
    Fault(check.m_file, check.m_line,
          check.m_threw ? check.m_exception.c_str() : check.m_decomp.c_str());
  }
  void log_message(const doctest::MessageData& message) override {
    Fault(message.m_file, message.m_line, message.m_string.c_str());
  }
  void test_case_exception(const doctest::TestCaseException& exception) override {
    Fault(name_.c_str(), 0, exception.error_string.c_str());
  }
  void test_case_end(const doctest::CurrentTestCaseStats& outcome) override {
    Line(outcome.failure_flags == 0 ? "holds" : "FAILS", name_);
    out_ << faults_ << std::flush;
  }
  void test_case_skipped(const doctest::TestCaseData& test) override {
    if (!test.m_skip) return;  // Not asked for.
    Line("not applicable here", test.m_name);
    Line("", test.m_description);
    ++left_out_;
  }
  void test_run_end(const doctest::TestRunStats& run) override {
    const unsigned failed = run.numTestCasesFailed;
    out_ << run.numTestCasesPassingFilters - failed << " hold, " << failed << " fail, " << left_out_
         << " not applicable here\n\n";
  }

  void report_query(const doctest::QueryData&) override {}
  void test_case_reenter(const doctest::TestCaseData&) override {}
  void subcase_start(const doctest::SubcaseSignature&) override {}
  void subcase_end() override {}

 private:
  void Line(const char* outcome, const std::string& promise) {
    out_ << std::left << std::setw(22) << outcome << "  " << promise << '\n';
  }
  void Fault(const char* file, int line, const char* what) {
    faults_ += "                        " + std::filesystem::path(file).filename().string() + ':' +
               std::to_string(line) + ": " + what + '\n';
  }

  std::ostream& out_;
  std::string name_;
  std::string faults_;
  unsigned left_out_ = 0;
};

DOCTEST_REGISTER_REPORTER("table", 0, TableReporter);

}  // namespace
}  // namespace panelkit::test
