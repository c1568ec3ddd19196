#include "app/frm_about.h"

#include "app/form_descriptions.h"

namespace panelkit {

void frmAbout::Show() {
  if (!window_) Load();
  window_->Show();
}

void frmAbout::Load() {
  window_ = toolkit_.CreateForm(kAboutWindow);
  window_->OnClick("Command1", [this] { Command1_Click(); });
  window_->OnClose([this] { window_.reset(); });
  Form_Load();
}

void frmAbout::Form_Load() {
  const ScreenSize Screen = toolkit_.Screen();
  window_->MoveTo((Screen.width - window_->Width()) / 2, (Screen.height - window_->Height()) / 2);
}

void frmAbout::Command1_Click() {
  window_->Hide();
}

}  // namespace panelkit
