-- Room codes and sign-in names compare without regard to case: "b02" is room B02, and a
-- second room "a1" beside "A1" is refused. A database that already holds two such codes
-- stops here with the store's own message; renaming one of them lets the upgrade run.
-- The member and top-up lists show their values as their windows always did; a rule the
-- venue changed itself stays. The step can run again on a database that has it.

DROP INDEX IF EXISTS ux_the_code;
CREATE UNIQUE INDEX IF NOT EXISTS ux_the_code_nocase ON The (lower(TheCode));
DROP INDEX IF EXISTS ix_operator_login;
CREATE INDEX IF NOT EXISTS ix_operator_login_nocase ON Operator (lower(LoginName));
-- Goods on a loss are looked up when the goods are deleted.
CREATE INDEX IF NOT EXISTS ix_warelosslist_ware ON WareLossList (WareID);

UPDATE FD_FormControl SET ShowValue = '1,0可用|*停用'
  WHERE FormControlName = 'frmMemberList.lvwThis' AND colname = 'State' AND ShowValue = '1,0可用|1停用';
UPDATE FD_FormControl SET ShowValue = '2,yyyy-MM-dd'
  WHERE FormControlName = 'frmMemberList.lvwThis' AND colname = 'birthday' AND ShowValue = '2,A';
UPDATE FD_FormControl SET ShowValue = '4,0'
  WHERE FormControlName = 'frmMemberList.lvwThis' AND colname = 'MemberValue' AND coalesce(ShowValue, '') = '';
UPDATE FD_FormControl SET ShowValue = '4,0.00'
  WHERE FormControlName = 'frmMemberList.lvwThis' AND colname = 'discount' AND coalesce(ShowValue, '') = '';
UPDATE FD_FormControl SET ShowValue = '2,MM-dd HH:mm'
  WHERE FormControlName = 'frmChongzhiList.lvwThis' AND colname = 'OperatorTime' AND ShowValue = '2,H';
UPDATE FD_FormControl SET ShowValue = '3,0'
  WHERE FormControlName = 'frmChongzhiList.lvwThis' AND colname IN ('factpay', 'thismemoney')
  AND ShowValue = '3,0.00';
