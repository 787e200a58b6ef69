#include "mps/frm_mps_file_open.h"

#include "platform/desktop.h"
#include "platform/files.h"

namespace quarvel::mps {

std::string frmMPSFileOpen::Choose(platform::FileDialog request, const std::string& location) {
  Load();
  if (!location.empty()) folder_ = platform::FolderOf(location);
  request.folder = folder_;
  std::string path = desktop().ShowFileDialog(request);
  if (!path.empty()) folder_ = platform::FolderOf(path);
  return path;
}

}  // namespace quarvel::mps
