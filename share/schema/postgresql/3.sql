-- SPDX-License-Identifier: MIT
-- Version 3: the count of refused logons per name, and the record of logons.
CREATE TABLE LogonFailures (Name CITEXT PRIMARY KEY, Refusals INTEGER, WaitUntil BIGINT);
CREATE TABLE LogonLog (At CITEXT, Name CITEXT, Desk CITEXT, Result CITEXT);
CREATE INDEX LogonLogAt ON LogonLog (At);
