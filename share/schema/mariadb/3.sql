-- SPDX-License-Identifier: MIT
-- Version 3: the count of refused logons per name, and the record of logons.
CREATE TABLE IF NOT EXISTS `logonfailures` (Name VARCHAR(255) PRIMARY KEY, Refusals INT, WaitUntil BIGINT) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;
CREATE TABLE IF NOT EXISTS `logonlog` (`At` VARCHAR(32), Name VARCHAR(255), Desk VARCHAR(255), Result VARCHAR(32)) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;
CREATE INDEX IF NOT EXISTS LogonLogAt ON `logonlog` (`At`);
