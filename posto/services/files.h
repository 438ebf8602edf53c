// Files of the workstation: where the program stands, names that are blind to case, and replacement in one step.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace posto {

// The folder of the running program.
std::string application_folder();

// The path of the file `name` in `folder`: of the one that stands there, whatever the case of its name, else as `name`
// is spelt. A folder that cannot be listed has none.
std::string file_in(const std::string& folder, std::string_view name);

// All bytes of the file. Raises 53 when there is no such file, 75 when it cannot be read.
std::string read_file(const std::string& path);

// Replaces the file at `path`, or creates it, in one step: `write` fills the temporary file whose path it is given,
// which then takes the place of the former one and is on the disk before the call returns. Whoever looks, also behind a
// crash, finds the old file or the new one; a failure, also one of `write`, leaves the old file and takes the temporary
// one away. The access rights of the old file stay; its owner where the system allows it. Raises 75 with the path and
// the system's reason, 76 when the folder does not exist.
void replace_file(const std::string& path, const std::function<void(const std::string& temporary)>& write);
// The same with the bytes at hand.
void replace_file(const std::string& path, std::string_view bytes);

// Holds a folder against other holders, in this process and in others, until it goes out of scope; waits for them. On a
// file system without such locks it holds nothing.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder);
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int handle_;
};

}  // namespace posto
