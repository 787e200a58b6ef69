#include "mps/frm_mps_file_open.h"

#include <memory>
#include <utility>

#include "model/lp_model.h"

namespace quarvel {

std::string frmMPSFileOpen::Choose(platform::FileDialog request) {
  Load();
  request.file_name.clear();
  desktop().ShowFileDialog(request);
  return std::move(request.file_name);
}

frmMPSFileOpen& FileDialogHost(LPModel& model) {
  std::unique_ptr<platform::Form>& slot = model.window(WindowSlot::kFileOpen);
  if (!slot) slot = std::make_unique<frmMPSFileOpen>(model.desktop());
  return static_cast<frmMPSFileOpen&>(*slot);
}

}  // namespace quarvel
