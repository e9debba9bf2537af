// SPDX-License-Identifier: MIT
#pragma once

// The lock a writer of the initialisation files and of the registry store
// takes around its read-change-replace, so that two writers never lose each
// other's values.

#include <QLockFile>
#include <QString>

#include <memory>

namespace zolt {

// Takes the lock file at path, waiting at most two seconds; null when it
// could not. A lock whose owner has died is taken over at once; one without
// an owner (its writer was killed while making it) after a tenth of a second.
std::unique_ptr<QLockFile> LockForWrite(const QString &path);

} // namespace zolt
