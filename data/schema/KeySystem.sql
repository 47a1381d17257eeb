CREATE TABLE "KeySystem" (
    "RowKey" INTEGER PRIMARY KEY,
    "SystemID" INTEGER NOT NULL UNIQUE,
    "SystemName" TEXT,
    "Address" TEXT,
    "LockBrand" TEXT,
    "SafetyFactor" INTEGER,
    "NumberOfPins" INTEGER,
    "PinIncrement" INTEGER,
    "Notes" TEXT,
    "MasterKey" TEXT,
    "MapFile" TEXT,
    "MapFileID" INTEGER
);

CREATE TABLE "Patterns" (
    "RowKey" INTEGER PRIMARY KEY,
    "SystemNumber" INTEGER NOT NULL,
    "PageNumber" INTEGER NOT NULL,
    "Position" INTEGER NOT NULL,
    "Serial" REAL,
    "Cuts" TEXT,
    "Master" INTEGER NOT NULL DEFAULT 0,
    "Label" TEXT,
    "Description" TEXT,
    "Department" TEXT,
    "KeyWay" TEXT,
    "AlphaCode" TEXT
);
CREATE INDEX "PatternsByPage" ON "Patterns" ("SystemNumber", "PageNumber", "Position");
CREATE INDEX "PatternsByCuts" ON "Patterns" ("SystemNumber", "Cuts");

CREATE TABLE "AllKeys" (
    "RowKey" INTEGER PRIMARY KEY,
    "SystemNumber" INTEGER NOT NULL,
    "KeyID" TEXT,
    "KeyWay" TEXT,
    "Cuts" TEXT,
    "CustomCuts" TEXT,
    "PageNumber" INTEGER,
    "Position" INTEGER
);
CREATE INDEX "AllKeysByPage" ON "AllKeys" ("SystemNumber", "PageNumber");
CREATE INDEX "AllKeysByKeyID" ON "AllKeys" ("SystemNumber", "KeyID");
CREATE INDEX "AllKeysByCuts" ON "AllKeys" ("SystemNumber", "Cuts");

CREATE TABLE "Doors" (
    "RowKey" INTEGER PRIMARY KEY,
    "DoorID" REAL,
    "SystemNumber" INTEGER NOT NULL,
    "DoorLabel" TEXT,
    "DoorDescription" TEXT,
    "DoorLocation" TEXT,
    "CutsLabel" TEXT,
    "Text1" TEXT,
    "Text2" TEXT,
    "Sing1" INTEGER,
    "Sing2" INTEGER,
    "Long1" INTEGER,
    "Crosskeyed" INTEGER NOT NULL DEFAULT 0,
    "Coordx" REAL,
    "CoordY" REAL,
    "LinkMapID" INTEGER
);
CREATE INDEX "DoorsBySystem" ON "Doors" ("SystemNumber");
CREATE INDEX "DoorsByLabel" ON "Doors" ("SystemNumber", "DoorLabel");
CREATE INDEX "DoorsByCutsLabel" ON "Doors" ("SystemNumber", "CutsLabel");
CREATE INDEX "DoorsByHardware" ON "Doors" ("SystemNumber", "Text1");
CREATE INDEX "DoorsByMap" ON "Doors" ("LinkMapID");

CREATE TABLE "Department" (
    "RowKey" INTEGER PRIMARY KEY,
    "Department" TEXT,
    "SystemNumber" INTEGER NOT NULL
);
CREATE INDEX "DepartmentBySystem" ON "Department" ("SystemNumber", "Department");

CREATE TABLE "KeyUsers" (
    "RowKey" INTEGER PRIMARY KEY,
    "UserID" INTEGER,
    "UserIDNumber" TEXT,
    "UserIDDouble" REAL,
    "Firstname" TEXT,
    "Lastname" TEXT,
    "Department" TEXT,
    "SystemNumber" INTEGER NOT NULL,
    "Title" TEXT,
    "Status" TEXT,
    "WorkPhone" TEXT,
    "Extention" TEXT,
    "HomePhone" TEXT,
    "Employee" INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX "KeyUsersByNumber" ON "KeyUsers" ("SystemNumber", "UserIDNumber");
CREATE INDEX "KeyUsersByName" ON "KeyUsers" ("SystemNumber", "Lastname");

CREATE TABLE "KeyUnit" (
    "RowKey" INTEGER PRIMARY KEY,
    "UnitIDNumber" INTEGER,
    "UnitID" TEXT,
    "KeyID" TEXT,
    "SystemNumber" INTEGER NOT NULL
);
CREATE INDEX "KeyUnitByKeyID" ON "KeyUnit" ("SystemNumber", "KeyID");
CREATE INDEX "KeyUnitByNumber" ON "KeyUnit" ("SystemNumber", "UnitIDNumber");

CREATE TABLE "UsertoUnit" (
    "RowKey" INTEGER PRIMARY KEY,
    "UTUID" INTEGER,
    "KeyID" TEXT,
    "UnitID" TEXT,
    "UserID" TEXT,
    "UserIDDouble" REAL,
    "KeyUsersID" INTEGER,
    "SystemNumber" INTEGER NOT NULL
);
CREATE INDEX "UsertoUnitByKeyID" ON "UsertoUnit" ("SystemNumber", "KeyID", "UnitID");
CREATE INDEX "UsertoUnitByUser" ON "UsertoUnit" ("SystemNumber", "UserID");

CREATE TABLE "ReturnKey" (
    "RowKey" INTEGER PRIMARY KEY,
    "ReturnID" INTEGER,
    "Date" TEXT,
    "Time" TEXT,
    "KeyID" TEXT,
    "UnitID" TEXT,
    "UserName" TEXT,
    "UserDepartment" TEXT,
    "LoggedUser" TEXT,
    "Report" TEXT,
    "SystemNumber" INTEGER NOT NULL
);
CREATE INDEX "ReturnKeyBySystem" ON "ReturnKey" ("SystemNumber");

CREATE TABLE "LostKeys" (
    "RowKey" INTEGER PRIMARY KEY,
    "LostID" INTEGER,
    "Date" TEXT,
    "Time" TEXT,
    "KeyID" TEXT,
    "UnitID" TEXT,
    "UserName" TEXT,
    "UserDepartment" TEXT,
    "LoggedUser" TEXT,
    "Report" TEXT,
    "SystemNumber" INTEGER NOT NULL
);
CREATE INDEX "LostKeysBySystem" ON "LostKeys" ("SystemNumber");

CREATE TABLE "CrossKeyed" (
    "RowKey" INTEGER PRIMARY KEY,
    "SystemNumber" INTEGER NOT NULL,
    "DoorID" REAL,
    "KeyID1" TEXT,
    "KeyID2" TEXT,
    "KeyID3" TEXT,
    "KeyID4" TEXT,
    "KeyID5" TEXT,
    "KeyID6" TEXT
);
CREATE INDEX "CrossKeyedByDoor" ON "CrossKeyed" ("SystemNumber", "DoorID");

CREATE TABLE "Activity" (
    "RowKey" INTEGER PRIMARY KEY,
    "Form" TEXT,
    "LoggedUser" TEXT,
    "Value1" TEXT,
    "Value2" TEXT,
    "Value3" TEXT,
    "Value4" TEXT,
    "Value5" TEXT,
    "Value6" TEXT,
    "SystemNumber" INTEGER NOT NULL
);
CREATE INDEX "ActivityBySystem" ON "Activity" ("SystemNumber");

CREATE TABLE "Manufacturer" (
    "RowKey" INTEGER PRIMARY KEY,
    "Name" TEXT,
    "Bottom0" TEXT,
    "Bottom1" TEXT,
    "Bottom2" TEXT,
    "Bottom3" TEXT,
    "Bottom4" TEXT,
    "Bottom5" TEXT,
    "Bottom6" TEXT,
    "Bottom7" TEXT,
    "Bottom8" TEXT,
    "Bottom9" TEXT,
    "Top0" TEXT,
    "Top1" TEXT,
    "Top2" TEXT,
    "Top3" TEXT,
    "Top4" TEXT,
    "Top5" TEXT,
    "Top6" TEXT,
    "Top7" TEXT,
    "Top8" TEXT,
    "Top9" TEXT
);

CREATE TABLE "ProgramUsers" (
    "RowKey" INTEGER PRIMARY KEY,
    "ProgramUserID" INTEGER,
    "UserName" TEXT,
    "Password" TEXT,
    "CreateSystem" INTEGER NOT NULL DEFAULT 0,
    "ReadPrintPinning" INTEGER NOT NULL DEFAULT 0,
    "IssueKeys" INTEGER NOT NULL DEFAULT 0,
    "AddEditProgramUsers" INTEGER NOT NULL DEFAULT 0,
    "AddEditKeyUsers" INTEGER NOT NULL DEFAULT 0,
    "AlterKeyInformation" INTEGER NOT NULL DEFAULT 0,
    "RunReports" INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE "CompanyInfo" (
    "RowKey" INTEGER PRIMARY KEY,
    "CompanyName" TEXT,
    "CompanyAddress" TEXT,
    "CompanySlogan" TEXT,
    "CompanyMemo" TEXT,
    "KeyPolicy1" TEXT,
    "KeyPolicy2" TEXT,
    "KeyPolicy3" TEXT,
    "KeyPolicy4" TEXT,
    "CompanyLogo" TEXT
);

CREATE TABLE "NumbersGiven" (
    "RowKey" INTEGER PRIMARY KEY,
    "Highest" INTEGER
);
