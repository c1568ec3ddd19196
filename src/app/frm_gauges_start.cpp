// frmGauges: which simulator the window works on, and another one at the user's choice.
#include "app/frm_gauges.h"
#include "pages/status_text.h"
#include "pages/strip_text.h"
#include "simulator/remembered_simulator.h"

namespace panelkit {

void frmGauges::OfferSimulators(const std::string& gone, std::size_t simulators) {
  simulators_ = simulators;
  const NextStep choose{"Choose &Another...", &frmGauges::ChooseSimulator};
  const std::string told = gone.empty() ? std::string() : SimulatorGoneText(gone) + " ";
  const std::string FSPath = GetFSPath();
  if (FSPath.empty()) {
    return Offer(told + kNoSimulatorText, {{"Choose &Its Folder...", &frmGauges::ChooseSimulator}});
  }
  if (!gone.empty() || simulators > 1) {
    Offer(told + SimulatorText(machine_.files.NativePath(FSPath), simulators), {choose});
  }
}

// Loads the form anew, since nothing else leaves the state without a simulator.
void frmGauges::ChooseSimulator() {
  const auto folders = form_->ChooseFolders("Choose the folder of Flight Simulator 2002");
  if (folders.empty()) return OfferSimulators({}, simulators_);
  const std::string& folder = folders.front();
  if (!IsSimulator(machine_.files, folder)) {
    return Offer(NoSimulatorThereText(machine_.files.NativePath(folder)),
                 {{"Choose &Another...", &frmGauges::ChooseSimulator}});
  }
  simulator_ = folder;
  for (const char* item : {"menProbe", "menShow", "menRemove", "menCool"}) {
    form_->MenuNamed(item).SetEnabled(true);
  }
  ProgressBar1.SetValue(0);
  Form_Load();
  const FileFault fault = RememberSimulator(machine_.files, folder);
  if (fault != FileFault::None) status_.Complain(SimulatorNotKeptText(fault));
}

}  // namespace panelkit
