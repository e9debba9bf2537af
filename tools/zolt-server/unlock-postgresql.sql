-- SPDX-License-Identifier: MIT
-- The lock taken away again, run by zolt-server as the tables' owner: the
-- desk role (@desk@) writes the library's tables itself, as before the lock.
-- Stored hashes keep the lock's form, which the library reads either way.

DELETE FROM options WHERE section = 'Config' AND keyname = 'DatabaseLock';
GRANT SELECT, INSERT, UPDATE, DELETE ON "user", groups, menu, submenu, options, lstfld, operator, logonfailures, logonlog TO @desk@;
GRANT USAGE ON SEQUENCE user_code_seq, groups_code_seq TO @desk@;
-- The session's user and group stay (a host's row policies may read them):
-- no logon sets them any more.
DROP FUNCTION IF EXISTS zolt_logon(text, text, text), zolt_logon_params(text), zolt_set_own_password(double precision, text), zolt_add_user(text, text, integer, double precision, text), zolt_update_user(text, text, text, integer, text, integer, double precision, text), zolt_delete_user(text), zolt_release_user(text), zolt_add_group(text, text), zolt_update_group(integer, text, text, text, text), zolt_delete_groups(integer[]), zolt_set_rights(integer, text[], integer[], integer[]), zolt_set_option(text, text, text, text, boolean), zolt_record_logon(text, text, text), zolt_stored_password(text), zolt_require_admin();
DROP TABLE IF EXISTS zolt_lock;
