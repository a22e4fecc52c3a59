-- Room codes and sign-in names compare without regard to case: "b02" is room B02, and a
-- second room "a1" beside "A1" is refused. A database that already holds two such codes
-- stops here with the store's own message; renaming one of them lets the upgrade run.
-- The step can run again on a database that has it.

DROP INDEX IF EXISTS ux_the_code;
CREATE UNIQUE INDEX IF NOT EXISTS ux_the_code_nocase ON The (lower(TheCode));
DROP INDEX IF EXISTS ix_operator_login;
CREATE INDEX IF NOT EXISTS ix_operator_login_nocase ON Operator (lower(LoginName));
-- Goods on a loss are looked up when the goods are deleted.
CREATE INDEX IF NOT EXISTS ix_warelosslist_ware ON WareLossList (WareID);
