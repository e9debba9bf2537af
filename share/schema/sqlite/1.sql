-- SPDX-License-Identifier: MIT
-- Version 1 of the tables the ZOLT library reads and writes, for SQLite: the
-- tables of the original program. Each file N.sql of this folder brings the
-- tables from version N-1 to N; keys.sql makes the unique keys. CreateTables
-- runs them, and the build joins them into zolt-sqlite.sql, the whole schema
-- for a new database. Every statement ends with a semicolon at the end of its
-- line. The library composes its SQL with [bracketed] names,
-- which SQLite reads as they stand. Text columns are COLLATE NOCASE: on the
-- library's connections = and <> then ignore case, Vietnamese letters
-- included, as LIKE does.

-- Users; the logon returns Code (column 0) and compares the password digest
-- in Password (column 3): never the password itself.
CREATE TABLE IF NOT EXISTS [User] (
    Code INTEGER PRIMARY KEY AUTOINCREMENT,
    [Name] TEXT COLLATE NOCASE,
    Dec TEXT COLLATE NOCASE,
    [Password] DOUBLE DEFAULT 0,
    IdGroup INTEGER
);

-- Groups of users; groups 1 and 8 are built in. After Des comes one rights
-- column (a whole number, one bit per sub-menu) for each row of Menu, in the
-- order of Menu.ID: add them with ALTER TABLE Groups ADD COLUMN ... INTEGER DEFAULT 0.
CREATE TABLE IF NOT EXISTS Groups (
    Code INTEGER PRIMARY KEY AUTOINCREMENT,
    [Name] TEXT COLLATE NOCASE,
    Des TEXT COLLATE NOCASE
);

-- The host's menu bars and their sub-menus, for the menu rights.
CREATE TABLE IF NOT EXISTS Menu (
    ID INTEGER PRIMARY KEY,
    [Desc] TEXT COLLATE NOCASE
);
CREATE TABLE IF NOT EXISTS SubMenu (
    ID INTEGER PRIMARY KEY,
    [Desc] TEXT COLLATE NOCASE,
    IdMenuBar INTEGER
);

-- Settings, one row per (Section, KeyName); fonts live under section "Config".
CREATE TABLE IF NOT EXISTS Options (
    [Section] TEXT COLLATE NOCASE,
    KeyName TEXT COLLATE NOCASE,
    KeyValue TEXT COLLATE NOCASE,
    Description TEXT COLLATE NOCASE
);

-- What the search wizard offers: the searchable fields of each table...
CREATE TABLE IF NOT EXISTS LstFld (
    code INTEGER,
    [Name] TEXT COLLATE NOCASE,
    [Desc] TEXT COLLATE NOCASE,
    InTable TEXT COLLATE NOCASE,
    Relation TEXT COLLATE NOCASE,
    [Type] INTEGER
);

-- ...and the comparisons each value type allows
-- (types 1, 3, 13 numbers; 8 dates; 10, 11 text).
CREATE TABLE IF NOT EXISTS Operator (
    Code INTEGER,
    [Name] TEXT COLLATE NOCASE,
    Des TEXT COLLATE NOCASE,
    [Type] INTEGER
);
