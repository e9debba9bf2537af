-- SPDX-License-Identifier: MIT
-- Version 1 of the tables the ZOLT library reads and writes, for MariaDB
-- (10.10 or later): the tables of the original program. Each file N.sql of
-- this folder brings the tables from version N-1 to N; keys.sql makes the
-- unique keys. CreateTables runs them, and the build joins them into
-- zolt-mariadb.sql, the whole schema for a new database. Every statement ends
-- with a semicolon at the end of its line. MariaDB commits each change of a
-- table at once, so a run that fails halfway keeps what it made: every step
-- may run again (IF NOT EXISTS), and the next run finishes it.
--
-- The library writes [bracketed] names, which reach MariaDB quoted in lower
-- case, and names the tables of its statements in lower case: the tables are
-- created so, since a server on Linux tells table names apart by case. Text
-- is utf8mb4 compared under utf8mb4_uca1400_nopad_as_ci: case never matters,
-- Vietnamese letters included, marks do, and trailing blanks count, as the
-- other engines compare; the clerk's searches choose their own collation.
-- Names and short texts are VARCHAR(255), so that keys can hold them.

-- Users; the logon returns Code (column 0) and compares the password digest
-- in Password (column 3): never the password itself.
CREATE TABLE IF NOT EXISTS `user` (Code INT AUTO_INCREMENT PRIMARY KEY, Name VARCHAR(255), `Dec` VARCHAR(255), Password DOUBLE DEFAULT 0, IdGroup INT) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;

-- Groups of users; groups 1 and 8 are built in. After Des comes one rights
-- column (a whole number, one bit per sub-menu) for each row of Menu, in the
-- order of Menu.ID: add them with ALTER TABLE Groups ADD COLUMN ... INTEGER DEFAULT 0.
CREATE TABLE IF NOT EXISTS `groups` (Code INT AUTO_INCREMENT PRIMARY KEY, Name VARCHAR(255), Des VARCHAR(255)) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;

-- The host's menu bars and their sub-menus, for the menu rights.
CREATE TABLE IF NOT EXISTS `menu` (ID INT PRIMARY KEY, `Desc` VARCHAR(255)) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;
CREATE TABLE IF NOT EXISTS `submenu` (ID INT PRIMARY KEY, `Desc` VARCHAR(255), IdMenuBar INT) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;

-- Settings, one row per (Section, KeyName); fonts live under section "Config".
CREATE TABLE IF NOT EXISTS `options` (Section VARCHAR(255), KeyName VARCHAR(255), KeyValue TEXT, Description TEXT) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;

-- What the search wizard offers: the searchable fields of each table...
CREATE TABLE IF NOT EXISTS `lstfld` (code INT, Name VARCHAR(255), `Desc` VARCHAR(255), InTable VARCHAR(255), Relation TEXT, Type INT) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;

-- ...and the comparisons each value type allows
-- (types 1, 3, 13 numbers; 8 dates; 10, 11 text).
CREATE TABLE IF NOT EXISTS `operator` (Code INT, Name VARCHAR(255), Des VARCHAR(255), Type INT) DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci;
