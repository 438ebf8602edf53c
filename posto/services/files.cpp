#include "posto/services/files.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "posto/types/erro.h"
#include "posto/types/text.h"

namespace posto {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kPathNotFound = 76;

[[noreturn]] void not_written(const std::string& path, int reason) {
  throw Erro(erro::kPathFileAccess, {},
             fmt::format("O arquivo {} não pode ser gravado: {}", path, std::generic_category().message(reason)));
}

// An open file or folder of the system.
class Handle {
 public:
  Handle(const std::string& path, int flags) : number_(open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
  ~Handle() {
    if (good()) close(number_);
  }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  bool good() const { return number_ >= 0; }
  int number() const { return number_; }

 private:
  int number_;
};

// A file beside the one that it is to replace; taken away again unless it did.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string target) : target_(std::move(target)) {
    for (int attempt = 0;; ++attempt) {
      path_ = fmt::format("{}.{}-{}.novo", target_, getpid(), attempt);
      const Handle made(path_, O_WRONLY | O_CREAT | O_EXCL);
      if (made.good()) {
        take_rights(made);
        return;
      }
      if (errno != EEXIST) not_written(target_, errno);
    }
  }
  ~TemporaryFile() {
    if (!in_place_) unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& path() const { return path_; }

  void take_place() {
    flush(path_);
    if (rename(path_.c_str(), target_.c_str()) != 0) not_written(target_, errno);
    in_place_ = true;
    flush(fs::path(target_).parent_path());
  }

 private:
  void take_rights(const Handle& made) const {
    struct stat old {};
    if (stat(target_.c_str(), &old) != 0) return;
    // Only the system's administrator may give a file away; for anybody else it becomes the writer's.
    if (fchown(made.number(), old.st_uid, old.st_gid) != 0 && errno != EPERM) not_written(target_, errno);
    if (fchmod(made.number(), old.st_mode & 0777) != 0) not_written(target_, errno);
  }
  void flush(const std::string& path) const {
    const Handle file(path, O_RDONLY);
    if (!file.good() || fsync(file.number()) != 0) not_written(target_, errno);
  }

  std::string target_, path_;
  bool in_place_ = false;
};

}  // namespace

std::string application_folder() { return fs::read_symlink("/proc/self/exe").parent_path(); }

std::string file_in(const std::string& folder, std::string_view name) {
  const fs::path exact = fs::path(folder) / name;
  std::error_code unreachable;
  if (fs::exists(exact, unreachable)) return exact;
  for (const auto& entry : fs::directory_iterator(folder, unreachable)) {
    if (equal_names(entry.path().filename().native(), name)) return entry.path();
  }
  return exact;
}

std::string read_file(const std::string& path) {
  if (!fs::exists(path)) throw Erro(erro::kFileNotFound, {}, "O arquivo " + path + " não existe");
  std::ifstream file(path, std::ios::binary);
  std::string bytes;
  char piece[8192];
  while (file.read(piece, sizeof piece), file.gcount() > 0) {
    bytes.append(piece, static_cast<std::size_t>(file.gcount()));
  }
  if (!file.is_open() || file.bad()) {
    throw Erro(erro::kPathFileAccess, {}, "O arquivo " + path + " não pode ser lido");
  }
  return bytes;
}

void replace_file(const std::string& path, const std::function<void(const std::string& temporary)>& write) {
  std::error_code unreachable;
  const fs::path target = fs::weakly_canonical(fs::absolute(path), unreachable);  // a link stays one
  if (unreachable || !fs::is_directory(target.parent_path(), unreachable)) {
    throw Erro(kPathNotFound, {}, "A pasta do arquivo " + path + " não existe");
  }
  TemporaryFile temporary(target);
  write(temporary.path());
  temporary.take_place();
}

void replace_file(const std::string& path, std::string_view bytes) {
  replace_file(path, [&](const std::string& temporary) {
    std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
    file << bytes;
    file.close();
    if (!file) not_written(path, errno);
  });
}

FolderLock::FolderLock(const std::string& folder)
    : handle_(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (handle_ < 0) return;
  while (flock(handle_, LOCK_EX) != 0 && errno == EINTR) {
  }
}

FolderLock::~FolderLock() {
  if (handle_ >= 0) close(handle_);
}

}  // namespace posto
