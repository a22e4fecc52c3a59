-- Print jobs. A job is stored before it is sent, so that a slip that did not come out,
-- a kitchen ticket above all, can be sent again or to another printer. The step can run
-- again on a database that has it already.
-- Role: Printer (bills), PrinterHC (kitchen), PrinterBT (bar), the setting naming its printer.
-- State: 0 waiting, 1 printed, 2 failed. Seq orders the jobs; keys made in one second do not.
-- SourceID: the bill, sale or top-up printed; ThisCode: the round of ordering of a ticket.

CREATE TABLE IF NOT EXISTS PrintJob (
  JobID TEXT PRIMARY KEY,
  Seq INTEGER NOT NULL DEFAULT 0,
  Role TEXT NOT NULL,
  Printer TEXT,
  Paper INTEGER DEFAULT 80,
  Design TEXT,
  Caption TEXT,
  SourceID TEXT,
  TheID TEXT,
  ThisCode TEXT,
  Document TEXT,
  Copies INTEGER DEFAULT 1,
  CreateTime TEXT,
  PrintTime TEXT,
  State INTEGER NOT NULL DEFAULT 0 CHECK (State IN (0, 1, 2)),
  Error TEXT,
  Tries INTEGER DEFAULT 0,
  operatorname TEXT
);
CREATE INDEX IF NOT EXISTS ix_printjob_state ON PrintJob (State, Seq);
CREATE INDEX IF NOT EXISTS ix_printjob_room ON PrintJob (TheID, Role, Seq);
CREATE INDEX IF NOT EXISTS ix_printjob_source ON PrintJob (SourceID, Seq);

-- The paper of each printer: 58 or 80 mm.
INSERT INTO pSetup (setupname, setupvalue) SELECT 'PrinterPaper', '80' WHERE NOT EXISTS
  (SELECT 1 FROM pSetup WHERE lower(setupname) = 'printerpaper');
INSERT INTO pSetup (setupname, setupvalue) SELECT 'PrinterHCPaper', '80' WHERE NOT EXISTS
  (SELECT 1 FROM pSetup WHERE lower(setupname) = 'printerhcpaper');
INSERT INTO pSetup (setupname, setupvalue) SELECT 'PrinterBTPaper', '80' WHERE NOT EXISTS
  (SELECT 1 FROM pSetup WHERE lower(setupname) = 'printerbtpaper');
