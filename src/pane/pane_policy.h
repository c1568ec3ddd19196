// Who may lead the pane where, and under which rules its pages stand: one policy for all toolkits.
#pragma once

#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace panelkit {

/// What an address leads to, as the toolkit recognises it.
enum class Target {
  OwnPage,    ///< A page of the program's, from its file or from memory.
  Web,        ///< An http or https address.
  Inline,     ///< Brings its content with it, as frames of web pages do: about, blob, data.
  ErrorPage,  ///< Says why another page cannot be shown.
  Other,      ///< Leads nowhere: the user's files, other programs, scripts.
};

enum class Place { MainFrame, Frame, NewWindow };

/// A load that a page, the user or the program asks for.
struct LoadRequest {
  std::string address;  ///< In one spelling for each page of the program's.
  Target target = Target::Other;
  Place place = Place::MainFrame;
  bool by_user = false;  ///< Known to be led to by the user's own click or key.
};

enum class Answer { Refuse, Show, OpenInUsersBrowser };

/// Pages of the program's hold text of downloaded aircraft, unescaped: such a page runs no script,
/// loads nothing but the program's pictures, and is left only at the word of the program or the
/// user. A page of the web may lead to others by itself. Until a web page has really come, what
/// stands in the pane stays under the strict rules. May be called from any thread.
class PanePolicy {
 public:
  /// The program is about to load `address`: one load of it (of the web: of its site) is allowed,
  /// also where another one comes before it.
  void Expect(const std::string& address);

  /// Decides on a load. One into the main frame that is allowed is under way from now on.
  Answer Decide(const LoadRequest& load);

  /// The main frame shows a new page.
  void HasCome(Target page);

  /// The load under way has failed or was stopped: the page shown before it stays.
  void HasFailed();

  /// Whether the page that stands, or the one that comes, is to load nothing but what the program
  /// gives it.
  bool IsStrict() const;

  /// Whether the page under way, else the one that stands, may run scripts.
  bool MayRunScripts() const;

  /// Whether a page is under way from the site of `address`.
  bool Awaits(std::string_view address) const;

 private:
  struct Load {
    Target target;
    std::string address;
  };

  bool TakeExpected(const std::string& key);

  mutable std::mutex mutex_;
  std::multiset<std::string> expected_;
  Target stands_ = Target::OwnPage;
  std::optional<Load> comes_;
};

/// Whether a text is an http or https address, in any case.
bool IsWebAddress(std::string_view text);

}  // namespace panelkit
