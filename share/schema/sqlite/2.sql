-- SPDX-License-Identifier: MIT
-- Version 2: the strong password store's column (Config/PasswordStore "argon2id").
ALTER TABLE [User] ADD COLUMN PasswordHash TEXT;
