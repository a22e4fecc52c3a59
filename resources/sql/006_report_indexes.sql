-- The reports read settled bills by closing time, counter sales by opening time and bill
-- lines by order time over a period of up to a year.
CREATE INDEX IF NOT EXISTS ix_expense_closetime ON Expense (CloseTime);
CREATE INDEX IF NOT EXISTS ix_outsale_open ON Outsale (OpenTime);
CREATE INDEX IF NOT EXISTS ix_detail_time ON ExpenseDetail (ExpenseTime);
