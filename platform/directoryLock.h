// A lock on the program directory: several starts of the program share its files.
#pragma once

namespace brasquelin {

/// Held from its construction on; one in another of the same program counts as held. Waits for other starts of the
/// program, processing pending events; after half a second the user is told and may cancel (error 18). A start that
/// died holds nothing. Where the system cannot lock the directory there is no lock.
class DirectoryLock {
  public:
    DirectoryLock();
    ~DirectoryLock();
    DirectoryLock(const DirectoryLock&) = delete;
    DirectoryLock& operator=(const DirectoryLock&) = delete;
    /// What is started from now on works under this lock: it may start this program again, which would wait for ever.
    void coverStartedPrograms();
    void release();

  private:
    bool held_ = false;
    bool coversStarted_ = false;
};

}  // namespace brasquelin
