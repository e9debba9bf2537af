-- SPDX-License-Identifier: MIT
-- What must be unique so that several desks cannot add the same row twice,
-- each key after the words that name a row breaking it: user names, compared
-- as the logon compares them (the columns' case-blind text), and one row per
-- setting. Groups may share names. CreateTables makes a key only when no rows
-- break it, and names those rows otherwise.
-- Người sử dụng trùng tên
CREATE UNIQUE INDEX IF NOT EXISTS UserName ON `user` (Name);
-- Thiết lập trùng khoá
CREATE UNIQUE INDEX IF NOT EXISTS OptionKey ON `options` (Section, KeyName);
