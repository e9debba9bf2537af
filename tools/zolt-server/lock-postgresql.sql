-- SPDX-License-Identifier: MIT
-- The lock on a PostgreSQL database of the ZOLT library, run by zolt-server
-- as the role that owns the library's tables, in the schema that holds them
-- (@schema@; citext's is @extensions@), for the role the desks connect with
-- (@desk@). Safe to run again. The functions name their search path, and no
-- desk may create in its schemas.
--
-- The desks may read what the dialogs show, never a password, digest or
-- hash, and change the library's tables only through the functions below,
-- each of which checks who logged on in the session: the logon alone says so,
-- in a temporary table of the session that this role owns, which ends with
-- the session.

CREATE TABLE IF NOT EXISTS zolt_lock (secret bytea NOT NULL);
INSERT INTO zolt_lock SELECT sha256(convert_to(gen_random_uuid()::text || clock_timestamp()::text, 'UTF8')) WHERE NOT EXISTS (SELECT 1 FROM zolt_lock);

-- A whole-number setting of section Config, else the fallback.
CREATE OR REPLACE FUNCTION zolt_config_int(p_key text, p_fallback integer) RETURNS integer LANGUAGE sql STABLE SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
    SELECT coalesce((SELECT CASE WHEN keyvalue ~ '^[0-9]{1,9}$' THEN keyvalue::integer END FROM options WHERE section = 'Config' AND keyname = p_key::citext LIMIT 1), p_fallback)
$$;

-- The logged-on user of this session: the row of the session's table, when this role made it.
CREATE OR REPLACE FUNCTION zolt_session_user() RETURNS integer LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    session regclass := to_regclass('pg_temp.zolt_session');
BEGIN
    IF session IS NULL OR (SELECT relowner FROM pg_class WHERE oid = session) <> (SELECT oid FROM pg_roles WHERE rolname = current_user) THEN
        RETURN NULL;
    END IF;
    RETURN (SELECT user_code FROM pg_temp.zolt_session LIMIT 1);
END $$;

CREATE OR REPLACE FUNCTION zolt_session_group() RETURNS integer LANGUAGE sql STABLE SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
    SELECT idgroup FROM "user" WHERE code = zolt_session_user()
$$;

-- Administration is the built-in group 1's.
CREATE OR REPLACE FUNCTION zolt_require_admin() RETURNS void LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
BEGIN
    IF coalesce(zolt_session_group(), 0) <> 1 THEN
        RAISE EXCEPTION 'Chỉ người quản trị đã đăng nhập mới được làm việc này.' USING ERRCODE = '42501';
    END IF;
END $$;

-- A password as the desk hands it over: Argon2id's parameters and salt as
-- libsodium writes them, then the hash it derived, in hexadecimal. Kept as
-- a digest of that hash, so that what is stored cannot be replayed.
CREATE OR REPLACE FUNCTION zolt_stored_password(p_proof text) RETURNS text LANGUAGE plpgsql IMMUTABLE SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
BEGIN
    IF p_proof IS NULL THEN
        RETURN NULL;
    END IF;
    IF p_proof !~ '^\$argon2id\$v=19\$m=[0-9]{1,9},t=[0-9]{1,4},p=1\$[A-Za-z0-9+/]{16,64}\$[0-9a-f]{64}$' THEN
        RAISE EXCEPTION 'Mật khẩu không hợp lệ' USING ERRCODE = '22023';
    END IF;
    RETURN '$zolt-sha256' || regexp_replace(p_proof, '\$[0-9a-f]{64}$', '') || '$' || encode(sha256(decode(right(p_proof, 64), 'hex')), 'hex');
END $$;

-- How the desk proves a password for the name: the legacy digest, or
-- Argon2id with the stored salt and parameters. A name that has no user
-- gets a salt of its own that stays the same, so that it looks like one.
CREATE OR REPLACE FUNCTION zolt_logon_params(p_name text) RETURNS TABLE(kind text, params text) LANGUAGE plpgsql STABLE SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    stored text;
    strong boolean := EXISTS (SELECT 1 FROM options WHERE section = 'Config' AND keyname = 'PasswordStore' AND keyvalue = 'argon2id');
BEGIN
    SELECT passwordhash INTO stored FROM "user" WHERE name = p_name::citext ORDER BY code LIMIT 1;
    IF FOUND AND coalesce(stored, '') = '' THEN
        RETURN QUERY SELECT 'digest'::text, NULL::text;
    ELSIF FOUND AND stored LIKE '$zolt-sha256$%' THEN
        RETURN QUERY SELECT 'argon2id'::text, regexp_replace(substr(stored, 13), '\$[0-9a-f]{64}$', '');
    ELSIF NOT FOUND AND strong THEN
        RETURN QUERY SELECT 'argon2id'::text, '$argon2id$v=19$m=65536,t=2,p=1$'
            || rtrim(encode(substr(sha256((SELECT secret FROM zolt_lock LIMIT 1) || convert_to(lower(p_name), 'UTF8')), 1, 16), 'base64'), '=');
    ELSE
        RETURN QUERY SELECT 'digest'::text, NULL::text;
    END IF;
END $$;

CREATE OR REPLACE FUNCTION zolt_record_logon(p_name text, p_desk text, p_result text) RETURNS void LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    days integer := zolt_config_int('LogonLogDays', 0);
BEGIN
    IF days > 0 THEN
        INSERT INTO logonlog("at", name, desk, result) VALUES (to_char(localtimestamp, 'YYYY-MM-DD"T"HH24:MI:SS'), p_name, p_desk, p_result);
        DELETE FROM logonlog WHERE "at" < to_char(localtimestamp - make_interval(days => days), 'YYYY-MM-DD"T"HH24:MI:SS')::citext;
    END IF;
END $$;

-- The logon: checks the proof of the password (the digest, or the hash the
-- desk derived), keeps the attempt limits and the record of logons, and
-- makes this session the user's. Returns the user's code (0 when refused)
-- and the seconds the name must still wait.
CREATE OR REPLACE FUNCTION zolt_logon(p_name text, p_proof text, p_desk text) RETURNS TABLE(code integer, wait bigint) LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    attempts integer := zolt_config_int('LogonAttempts', 0);
    first_wait integer := zolt_config_int('LogonWaitSeconds', 30);
    max_wait integer := zolt_config_int('LogonWaitMax', 900);
    now_s bigint := extract(epoch FROM clock_timestamp())::bigint;
    until bigint;
    found_user record;
    accepted boolean := false;
    session regclass;
BEGIN
    -- A new logon ends the one before, whoever's it was.
    PERFORM zolt_logoff();
    IF attempts > 0 THEN
        SELECT waituntil INTO until FROM logonfailures WHERE name = p_name::citext;
        IF until > now_s THEN
            PERFORM zolt_record_logon(p_name, p_desk, 'waiting');
            RETURN QUERY SELECT 0, until - now_s;
            RETURN;
        END IF;
    END IF;
    SELECT u.code, u.password, u.passwordhash INTO found_user FROM "user" u WHERE u.name = p_name::citext ORDER BY u.code LIMIT 1;
    IF FOUND AND coalesce(found_user.passwordhash, '') <> '' THEN
        accepted := p_proof ~ '^[0-9a-f]{64}$' AND found_user.passwordhash LIKE '$zolt-sha256$%'
                    AND right(found_user.passwordhash, 64) = encode(sha256(decode(p_proof, 'hex')), 'hex');
    ELSIF FOUND THEN
        accepted := p_proof ~ '^[0-9]+(\.[0-9]+)?(E\+[0-9]+)?$' AND found_user.password >= 0 AND found_user.password = p_proof::float8;
    END IF;
    IF NOT accepted THEN
        IF attempts > 0 THEN
            INSERT INTO logonfailures AS f (name, refusals, waituntil) VALUES (p_name, 1, now_s + CASE WHEN 1 >= attempts THEN least(first_wait, max_wait) ELSE 0 END)
            ON CONFLICT (name) DO UPDATE SET refusals = f.refusals + 1,
                waituntil = now_s + CASE WHEN f.refusals + 1 < attempts THEN 0
                                         ELSE least(first_wait::bigint << least(f.refusals + 1 - attempts, 20), max_wait) END;
        END IF;
        PERFORM zolt_record_logon(p_name, p_desk, 'refused');
        RETURN QUERY SELECT 0, 0::bigint;
        RETURN;
    END IF;
    DELETE FROM logonfailures WHERE name = p_name::citext;
    PERFORM zolt_record_logon(p_name, p_desk, 'accepted');
    session := to_regclass('pg_temp.zolt_session');
    IF session IS NULL THEN
        CREATE TEMPORARY TABLE zolt_session (user_code integer NOT NULL);
    ELSIF (SELECT relowner FROM pg_class WHERE oid = session) <> (SELECT oid FROM pg_roles WHERE rolname = current_user) THEN
        RAISE EXCEPTION 'Phiên làm việc này có một bảng đăng nhập giả.' USING ERRCODE = '42501';
    END IF;
    INSERT INTO pg_temp.zolt_session VALUES (found_user.code);
    RETURN QUERY SELECT found_user.code::integer, 0::bigint;
END $$;

-- The session's logon ends.
CREATE OR REPLACE FUNCTION zolt_logoff() RETURNS void LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
BEGIN
    IF zolt_session_user() IS NOT NULL THEN
        DELETE FROM pg_temp.zolt_session;
    END IF;
END $$;

-- The logged-on user's own password: the digest, or the hash the desk derived.
CREATE OR REPLACE FUNCTION zolt_set_own_password(p_digest double precision, p_proof text) RETURNS void LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    me integer := zolt_session_user();
BEGIN
    IF me IS NULL THEN
        RAISE EXCEPTION 'Chưa đăng nhập.' USING ERRCODE = '42501';
    END IF;
    UPDATE "user" SET password = p_digest, passwordhash = zolt_stored_password(p_proof) WHERE code = me;
END $$;

-- Users: added unless the name is taken (0 then), changed only while the row
-- holds what the editor read, deleted, released from a wait.
CREATE OR REPLACE FUNCTION zolt_add_user(p_name text, p_dec text, p_group integer, p_digest double precision, p_proof text) RETURNS integer LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    added integer;
BEGIN
    PERFORM zolt_require_admin();
    INSERT INTO "user"(name, "dec", idgroup, password, passwordhash) VALUES (p_name, p_dec, p_group, p_digest, zolt_stored_password(p_proof))
    ON CONFLICT DO NOTHING RETURNING "user".code INTO added;
    RETURN coalesce(added, 0);
END $$;

CREATE OR REPLACE FUNCTION zolt_update_user(p_old text, p_name text, p_dec text, p_group integer, p_read_dec text, p_read_group integer, p_digest double precision, p_proof text) RETURNS integer LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    changed integer;
BEGIN
    PERFORM zolt_require_admin();
    UPDATE "user" SET name = p_name, "dec" = p_dec, idgroup = p_group,
        password = coalesce(p_digest, password),
        passwordhash = CASE WHEN p_digest IS NULL THEN passwordhash ELSE zolt_stored_password(p_proof) END
    WHERE name = p_old::citext AND "dec" IS NOT DISTINCT FROM p_read_dec::citext AND idgroup IS NOT DISTINCT FROM p_read_group;
    GET DIAGNOSTICS changed = ROW_COUNT;
    RETURN changed;
END $$;

CREATE OR REPLACE FUNCTION zolt_delete_user(p_name text) RETURNS integer LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    deleted integer;
BEGIN
    PERFORM zolt_require_admin();
    DELETE FROM "user" WHERE name = p_name::citext;
    GET DIAGNOSTICS deleted = ROW_COUNT;
    RETURN deleted;
END $$;

CREATE OR REPLACE FUNCTION zolt_release_user(p_name text) RETURNS void LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
BEGIN
    PERFORM zolt_require_admin();
    DELETE FROM logonfailures WHERE name = p_name::citext;
END $$;

-- Groups: added, changed only while the row holds what the dialog read,
-- deleted but for the built-in 1 and 8; their rights, each menu bar's column
-- set only while it holds what was read.
CREATE OR REPLACE FUNCTION zolt_add_group(p_name text, p_des text) RETURNS integer LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    added integer;
BEGIN
    PERFORM zolt_require_admin();
    INSERT INTO groups(name, des) VALUES (p_name, p_des) RETURNING groups.code INTO added;
    RETURN added;
END $$;

CREATE OR REPLACE FUNCTION zolt_update_group(p_code integer, p_name text, p_des text, p_read_name text, p_read_des text) RETURNS integer LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    changed integer;
BEGIN
    PERFORM zolt_require_admin();
    UPDATE groups SET name = p_name, des = p_des
    WHERE code = p_code AND name IS NOT DISTINCT FROM p_read_name::citext AND des IS NOT DISTINCT FROM p_read_des::citext;
    GET DIAGNOSTICS changed = ROW_COUNT;
    RETURN changed;
END $$;

CREATE OR REPLACE FUNCTION zolt_delete_groups(p_codes integer[]) RETURNS integer LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    deleted integer;
BEGIN
    PERFORM zolt_require_admin();
    DELETE FROM groups WHERE code = ANY(p_codes) AND code NOT IN (1, 8);
    GET DIAGNOSTICS deleted = ROW_COUNT;
    RETURN deleted;
END $$;

CREATE OR REPLACE FUNCTION zolt_set_rights(p_code integer, p_columns text[], p_values integer[], p_read integer[]) RETURNS integer LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
DECLARE
    sets text[] := '{}';
    holds text[] := '{}';
    changed integer;
BEGIN
    PERFORM zolt_require_admin();
    IF coalesce(array_length(p_columns, 1), 0) = 0 OR array_length(p_values, 1) <> array_length(p_columns, 1)
       OR array_length(p_read, 1) <> array_length(p_columns, 1) THEN
        RAISE EXCEPTION 'Quyền không hợp lệ' USING ERRCODE = '22023';
    END IF;
    FOR i IN 1 .. array_length(p_columns, 1) LOOP
        -- A rights column: one of Groups' after Code, Name and Des.
        IF lower(p_columns[i]) IN ('code', 'name', 'des') OR NOT EXISTS (
            SELECT 1 FROM pg_attribute WHERE attrelid = 'groups'::regclass AND attname = lower(p_columns[i]) AND attnum > 0 AND NOT attisdropped) THEN
            RAISE EXCEPTION 'Nhóm không có cột quyền %', p_columns[i] USING ERRCODE = '42703';
        END IF;
        sets := sets || format('%I = %s', lower(p_columns[i]), p_values[i]);
        holds := holds || format('coalesce(%I, 0) = %s', lower(p_columns[i]), p_read[i]);
    END LOOP;
    EXECUTE format('UPDATE groups SET %s WHERE code = %s AND %s', array_to_string(sets, ', '), p_code, array_to_string(holds, ' AND '));
    GET DIAGNOSTICS changed = ROW_COUNT;
    RETURN changed;
END $$;

-- Settings: any desk writes its own sections; section Config, which rules
-- the library (passwords, limits, fonts), only an administrator.
CREATE OR REPLACE FUNCTION zolt_set_option(p_section text, p_key text, p_value text, p_description text, p_new boolean) RETURNS void LANGUAGE plpgsql SECURITY DEFINER SET search_path = @schema@, @extensions@, pg_temp AS $$
BEGIN
    IF lower(p_section) = 'config' THEN
        PERFORM zolt_require_admin();
    END IF;
    IF p_new THEN
        INSERT INTO options(section, keyname, keyvalue, description) VALUES (p_section, p_key, p_value, p_description);
    ELSE
        INSERT INTO options AS o (section, keyname, keyvalue, description) VALUES (p_section, p_key, p_value, p_description)
        ON CONFLICT (section, keyname) DO UPDATE SET keyvalue = excluded.keyvalue, description = coalesce(excluded.description, o.description);
    END IF;
END $$;

-- Hashes already stored (crypto_pwhash_str) keep their salt and parameters,
-- and a digest of their hash in its place.
UPDATE "user" SET passwordhash = '$zolt-sha256' || regexp_replace(passwordhash, '\$[^$]*$', '') || '$'
    || encode(sha256(decode(rpad(split_part(passwordhash, '$', 6), (length(split_part(passwordhash, '$', 6)) + 3) / 4 * 4, '='), 'base64')), 'hex')
    WHERE passwordhash LIKE '$argon2id$%';

-- What the desks may do: read what the dialogs show, and call the functions.
REVOKE ALL ON "user", groups, menu, submenu, options, lstfld, operator, logonfailures, logonlog, zolt_lock FROM PUBLIC, @desk@;
REVOKE ALL ON SEQUENCE user_code_seq, groups_code_seq FROM PUBLIC, @desk@;
REVOKE CREATE ON SCHEMA @schema@, @extensions@ FROM PUBLIC, @desk@;
GRANT USAGE ON SCHEMA @schema@ TO @desk@;
GRANT SELECT (code, name, "dec", idgroup) ON "user" TO @desk@;
GRANT SELECT ON groups, menu, submenu, options, lstfld, operator TO @desk@;
GRANT SELECT (name, waituntil) ON logonfailures TO @desk@;
REVOKE EXECUTE ON FUNCTION zolt_config_int(text, integer), zolt_require_admin(), zolt_stored_password(text), zolt_record_logon(text, text, text) FROM PUBLIC, @desk@;
REVOKE EXECUTE ON FUNCTION zolt_session_user(), zolt_session_group(), zolt_logon_params(text), zolt_logon(text, text, text), zolt_logoff(), zolt_set_own_password(double precision, text), zolt_add_user(text, text, integer, double precision, text), zolt_update_user(text, text, text, integer, text, integer, double precision, text), zolt_delete_user(text), zolt_release_user(text), zolt_add_group(text, text), zolt_update_group(integer, text, text, text, text), zolt_delete_groups(integer[]), zolt_set_rights(integer, text[], integer[], integer[]), zolt_set_option(text, text, text, text, boolean) FROM PUBLIC;
GRANT EXECUTE ON FUNCTION zolt_session_user(), zolt_session_group(), zolt_logon_params(text), zolt_logon(text, text, text), zolt_logoff(), zolt_set_own_password(double precision, text), zolt_add_user(text, text, integer, double precision, text), zolt_update_user(text, text, text, integer, text, integer, double precision, text), zolt_delete_user(text), zolt_release_user(text), zolt_add_group(text, text), zolt_update_group(integer, text, text, text, text), zolt_delete_groups(integer[]), zolt_set_rights(integer, text[], integer[], integer[]), zolt_set_option(text, text, text, text, boolean) TO @desk@;

-- The library's desks know the lock by this setting, and write through the functions.
INSERT INTO options AS o (section, keyname, keyvalue, description) VALUES ('Config', 'DatabaseLock', @desk_literal@, 'Khoá của máy chủ: vai trò của các máy trạm')
ON CONFLICT (section, keyname) DO UPDATE SET keyvalue = excluded.keyvalue;
