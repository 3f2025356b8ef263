// A store of one file per key. The key comes from the file's path and the path from the key; what a
// value is and how it goes to and from a file is the delegate's. Every access is coordinated against
// other processes. "URL" in the names means an absolute path.
//
// The store holds no lock: any thread may call, two calls on one key are ordered only by the
// coordinator. Notifications go out on the thread of the call, after the coordinated access.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Environment.h"
#include "platform/FileCoordinator.h"
#include "platform/Object.h"
#include "platform/Result.h"
#include "sync/CCKeyStore.h"
#include "sync/FileVersions.h"

namespace dayward {

class CCFilesKeyStore;

class CCFilesKeyStoreDelegate {
public:
    virtual ~CCFilesKeyStoreDelegate() = default;

    [[nodiscard]] virtual std::string keyForURL(CCFilesKeyStore& store, const std::string& url) const = 0;
    /// Fails for a key that cannot be a file's name.
    [[nodiscard]] virtual Result<std::string> URLForKey(CCFilesKeyStore& store, const std::string& key) const = 0;
    virtual Result<Object> readValueFromURL(CCFilesKeyStore& store, const std::string& url) = 0;
    virtual Result<> writeValue(CCFilesKeyStore& store, const Object& value, const std::string& forURL) = 0;
};

class CCFilesKeyStore : public CCKeyStore {
public:
    /// Without `versions` the store's files lie in a plain folder.
    explicit CCFilesKeyStore(Environment& environment, std::shared_ptr<FileVersions> versions = nullptr);

    /// Not owned. A store is usually its own delegate.
    [[nodiscard]] virtual CCFilesKeyStoreDelegate* delegate() const { return delegate_; }
    virtual void setDelegate(CCFilesKeyStoreDelegate* delegate) { delegate_ = delegate; }

    /// The value in the key's file, read under coordination. Without a delegate the process stops.
    virtual Result<Object> readValueForKey(const std::string& key);
    /// Writes the value, or removes the key's file for a null one; then the hook runs and the update
    /// notification goes out. After a failure neither happens.
    virtual Result<> setStoreValue(const Object& value, const std::string& forKey);

    /// Hooks, run inside the coordinated access once the file is written or gone.
    virtual void storeValueDidUpdate(const std::string& key);
    virtual void storeValueDidRemove(const std::string& key);

    /// The current version wins: the competing ones are thrown away unread. True where that was done
    /// or no such file exists; a failure is logged and gives false.
    virtual bool unresolveConflictForURL(const std::string& url);
    /// True where the request for the file's data was accepted; a failure is logged.
    virtual bool requestDownloadingForURL(const std::string& url);

protected:
    [[nodiscard]] Environment& environment() const { return environment_; }
    [[nodiscard]] FileCoordinator& coordinator() const { return environment_.coordinator(); }
    /// The delegate; without one the process stops.
    [[nodiscard]] CCFilesKeyStoreDelegate& requiredDelegate() const;
    [[nodiscard]] NotificationCenter& notificationCenter() const override;
    /// For within a coordinated access: removes the key's file and runs the hook; posts nothing.
    Result<> removeFile(const std::string& path, const std::string& key);
    /// "EventLocalStore", for log lines.
    [[nodiscard]] virtual std::string typeName() const { return "CCFilesKeyStore"; }

private:
    Result<> removeStoreValue(const std::string& key);

    Environment& environment_;
    std::shared_ptr<FileVersions> versions_;
    CCFilesKeyStoreDelegate* delegate_ = nullptr;
};

}  // namespace dayward
