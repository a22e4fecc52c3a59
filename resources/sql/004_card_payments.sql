-- Bills paid with a member's stored value are listed by the card that paid them
-- (the member's records, the top-up list). The step can run again on a database that has it.

CREATE INDEX IF NOT EXISTS ix_expense_card ON Expense (chongzhiIDCare);
