-- SPDX-License-Identifier: MIT
-- Version 4: the user list's members of a group are read by IdGroup.
CREATE INDEX IF NOT EXISTS UserGroup ON `user` (IdGroup);
