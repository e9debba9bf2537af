-- SPDX-License-Identifier: MIT
-- Version 2: the strong password store's column (Config/PasswordStore "argon2id").
ALTER TABLE `user` ADD COLUMN IF NOT EXISTS PasswordHash TEXT;
