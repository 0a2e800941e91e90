-- The two roles of a database that holds companies. Its administrator runs this there once, or again:
--
--   psql -d books -f roles.sql
--
-- owner    makes, upgrades and copies companies; a login role, whose password is set by \password owner
-- office   what every desk may do with what the owner has made: read and write rows, and nothing else. A person is a login role in it:
--          CREATE ROLE anna LOGIN IN ROLE office
--
-- Other names: -v owner=keeper -v office=desks
\set ON_ERROR_STOP on
\if :{?owner}
\else
\set owner owner
\endif
\if :{?office}
\else
\set office office
\endif
SELECT current_database() AS books,
       NOT EXISTS (SELECT FROM pg_roles WHERE rolname = :'owner') AS no_owner,
       NOT EXISTS (SELECT FROM pg_roles WHERE rolname = :'office') AS no_office \gset
BEGIN;
\if :no_owner
CREATE ROLE :"owner" LOGIN;
\endif
\if :no_office
CREATE ROLE :"office" NOLOGIN;
\endif

-- The database is theirs alone.
ALTER DATABASE :"books" OWNER TO :"owner";
REVOKE ALL ON DATABASE :"books" FROM PUBLIC;
GRANT CONNECT, TEMPORARY ON DATABASE :"books" TO :"office";
REVOKE CREATE ON SCHEMA public FROM PUBLIC;

-- What the owner makes from now on ...
ALTER DEFAULT PRIVILEGES FOR ROLE :"owner" GRANT USAGE ON SCHEMAS TO :"office";
ALTER DEFAULT PRIVILEGES FOR ROLE :"owner" GRANT SELECT, INSERT, UPDATE, DELETE ON TABLES TO :"office";
ALTER DEFAULT PRIVILEGES FOR ROLE :"owner" GRANT USAGE, SELECT, UPDATE ON SEQUENCES TO :"office";

-- ... and what is there already.
SELECT format('GRANT USAGE ON SCHEMA %1$I TO %2$I', nspname, :'office'),
       format('GRANT SELECT, INSERT, UPDATE, DELETE ON ALL TABLES IN SCHEMA %1$I TO %2$I', nspname, :'office'),
       format('GRANT USAGE, SELECT, UPDATE ON ALL SEQUENCES IN SCHEMA %1$I TO %2$I', nspname, :'office')
FROM pg_namespace WHERE nspowner = :'owner'::regrole \gexec
COMMIT;
