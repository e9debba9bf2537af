-- SPDX-License-Identifier: MIT
-- Version 3: the count of refused logons per name, and the record of logons.
CREATE TABLE LogonFailures ([Name] TEXT COLLATE NOCASE PRIMARY KEY, Refusals INTEGER, WaitUntil BIGINT);
CREATE TABLE LogonLog (At TEXT COLLATE NOCASE, [Name] TEXT COLLATE NOCASE, Desk TEXT COLLATE NOCASE, Result TEXT COLLATE NOCASE);
CREATE INDEX LogonLogAt ON LogonLog (At);
