-- SPDX-License-Identifier: MIT
-- Version 1 of the tables the ZOLT library reads and writes, for PostgreSQL
-- (directly or through ODBC): the tables of the original program. Each file
-- N.sql of this folder brings the tables from version N-1 to N; keys.sql makes
-- the unique keys. CreateTables runs them, and the build joins them into
-- zolt-postgresql.sql, the whole schema for a new database. Every statement
-- ends with a semicolon at the end of its line.
--
-- The library writes [bracketed] names, which reach PostgreSQL as quoted
-- lower-case names ([User] as "user"), and plain names, which PostgreSQL
-- folds to lower case: tables and columns are therefore created unquoted, or
-- quoted in lower case where the name is a reserved word. Text is citext, so
-- that =, <> and LIKE ignore case, Vietnamese letters included, as the
-- library expects of every text it compares.
CREATE EXTENSION IF NOT EXISTS citext;
CREATE EXTENSION IF NOT EXISTS unaccent;

-- How a clerk's search compares text (ConditionSql): typed text with marks
-- through zolt_nocase, typed text without any through zolt_bare, on both
-- sides of the comparison. Immutable, so that a host can index a column it
-- searches on zolt_bare(column) with text_pattern_ops (see the host's guide).
CREATE OR REPLACE FUNCTION zolt_nocase(text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT lower(normalize($1, NFC)) $$;
CREATE OR REPLACE FUNCTION zolt_bare(text) RETURNS text LANGUAGE sql IMMUTABLE STRICT PARALLEL SAFE AS $$ SELECT lower(unaccent('unaccent', $1)) $$;

-- Codes of new users and groups: the next of a sequence that also follows
-- codes written explicitly, so that two desks adding at once never collide.
CREATE OR REPLACE FUNCTION zolt_follow_codes() RETURNS trigger LANGUAGE plpgsql AS $$ DECLARE codes text := pg_get_serial_sequence(format('%I.%I', TG_TABLE_SCHEMA, TG_TABLE_NAME), 'code'); BEGIN EXECUTE format('SELECT setval(%L, greatest(max(code), coalesce(pg_sequence_last_value(%L), 0), 1)) FROM %I.%I', codes, codes, TG_TABLE_SCHEMA, TG_TABLE_NAME); RETURN NULL; END $$;

-- Users; the logon returns Code (column 0) and compares the password digest
-- in Password (column 3): never the password itself.
CREATE TABLE IF NOT EXISTS "user" (
    Code SERIAL PRIMARY KEY,
    Name CITEXT,
    Dec CITEXT,
    Password DOUBLE PRECISION DEFAULT 0,
    IdGroup INTEGER
);
CREATE OR REPLACE TRIGGER user_codes AFTER INSERT ON "user" FOR EACH STATEMENT EXECUTE FUNCTION zolt_follow_codes();

-- Groups of users; groups 1 and 8 are built in. After Des comes one rights
-- column (a whole number, one bit per sub-menu) for each row of Menu, in the
-- order of Menu.ID: add them with ALTER TABLE Groups ADD COLUMN ... INTEGER DEFAULT 0.
CREATE TABLE IF NOT EXISTS Groups (
    Code SERIAL PRIMARY KEY,
    Name CITEXT,
    Des CITEXT
);
CREATE OR REPLACE TRIGGER groups_codes AFTER INSERT ON Groups FOR EACH STATEMENT EXECUTE FUNCTION zolt_follow_codes();

-- The host's menu bars and their sub-menus, for the menu rights.
CREATE TABLE IF NOT EXISTS Menu (
    ID INTEGER PRIMARY KEY,
    "desc" CITEXT
);
CREATE TABLE IF NOT EXISTS SubMenu (
    ID INTEGER PRIMARY KEY,
    "desc" CITEXT,
    IdMenuBar INTEGER
);

-- Settings, one row per (Section, KeyName); fonts live under section "Config".
CREATE TABLE IF NOT EXISTS Options (
    Section CITEXT,
    KeyName CITEXT,
    KeyValue CITEXT,
    Description CITEXT
);

-- What the search wizard offers: the searchable fields of each table...
CREATE TABLE IF NOT EXISTS LstFld (
    code INTEGER,
    Name CITEXT,
    "desc" CITEXT,
    InTable CITEXT,
    Relation CITEXT,
    Type INTEGER
);

-- ...and the comparisons each value type allows
-- (types 1, 3, 13 numbers; 8 dates; 10, 11 text).
CREATE TABLE IF NOT EXISTS Operator (
    Code INTEGER,
    Name CITEXT,
    Des CITEXT,
    Type INTEGER
);
