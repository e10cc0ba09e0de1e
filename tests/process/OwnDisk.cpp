#include "tests/process/OwnDisk.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <utility>

namespace quobrak::testing {

namespace {

/// Lets an ordinary user be root among mounts of its own.
bool becomeRootOfOwnMounts() {
  const std::string user = "0 " + std::to_string(::getuid()) + " 1";
  const std::string group = "0 " + std::to_string(::getgid()) + " 1";
  if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
    return false;
  }
  std::ofstream("/proc/self/setgroups") << "deny";
  std::ofstream("/proc/self/uid_map") << user;
  std::ofstream("/proc/self/gid_map") << group;
  return true;
}

/// Mounts that nobody else sees, and that go with this process. Where there can be none, the tests are skipped before
/// anything of them has run.
class OwnMounts final : public ::testing::Environment {
 public:
  void SetUp() override {
    const bool isSeparate = (::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0) || becomeRootOfOwnMounts();
    if (!isSeparate || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
      std::cout << "skipped: a disk to be filled can only be mounted by root, or in a user namespace" << std::endl;
      constexpr int SKIPPED = 77;
      std::exit(SKIPPED);
    }
  }
};

// Google Test deletes it.
const ::testing::Environment* const OWN_MOUNTS = ::testing::AddGlobalTestEnvironment(new OwnMounts);

}  // namespace

OwnDisk::OwnDisk(std::filesystem::path folder, const std::string& room) : folder_(std::move(folder)) {
  EXPECT_EQ(::mount("tmpfs", folder_.c_str(), "tmpfs", 0, room.c_str()), 0) << "no disk with " << room;
}

OwnDisk::~OwnDisk() {
  ::umount2(folder_.c_str(), MNT_DETACH);
}

std::string sizeInPages(std::size_t count) {
  return "size=" + std::to_string(count * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)));
}

std::string sizeInNodes(std::size_t count) {
  return "nr_inodes=" + std::to_string(count);
}

}  // namespace quobrak::testing
