-- SPDX-License-Identifier: MIT
-- What zolt-server checks before it takes the lock (see lock-postgresql.sql
-- for the placeholders): a desk role that could act as the owner, or drop
-- what the lock stands on (as the owner of the database, of the tables'
-- schema or of the extensions the functions call), would leave nothing
-- locked; and the owner makes the lock's table and functions in the schema.

DO $$ BEGIN
    IF EXISTS (SELECT 1 FROM pg_roles WHERE rolname = @desk_literal@) THEN
        IF pg_has_role(@desk_literal@, current_user, 'MEMBER') OR (SELECT rolsuper OR rolbypassrls FROM pg_roles WHERE rolname = @desk_literal@) THEN
            RAISE EXCEPTION 'the desk role % can act as the owner %, or pass any lock: give the desks a role of their own', @desk_literal@, current_user;
        END IF;
        IF EXISTS (SELECT 1 FROM pg_database WHERE datname = current_database() AND pg_has_role(@desk_literal@, datdba, 'MEMBER'))
           OR EXISTS (SELECT 1 FROM pg_namespace WHERE nspname = current_schema() AND pg_has_role(@desk_literal@, nspowner, 'MEMBER'))
           OR EXISTS (SELECT 1 FROM pg_extension WHERE extname IN ('citext', 'unaccent') AND pg_has_role(@desk_literal@, extowner, 'MEMBER')) THEN
            RAISE EXCEPTION 'the desk role % owns the database, its schema % or its extensions, and could drop what the lock stands on: as the server''s superuser, REASSIGN OWNED BY % TO %', @desk_literal@, current_schema(), @desk_literal@, current_user;
        END IF;
    END IF;
    IF NOT has_schema_privilege(current_schema(), 'CREATE') THEN
        RAISE EXCEPTION 'the owner % cannot create in the schema %: as the server''s superuser, ALTER DATABASE % OWNER TO %', current_user, current_schema(), current_database(), current_user;
    END IF;
END $$;
