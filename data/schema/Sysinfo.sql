CREATE TABLE "SystemInfo" (
    "RowKey" INTEGER PRIMARY KEY,
    "NetworkPath" TEXT,
    "PersonelFile" TEXT,
    "PersonelTable" TEXT,
    "Lastname" TEXT,
    "Firstname" TEXT,
    "Department" TEXT,
    "Networked" INTEGER NOT NULL DEFAULT 0,
    "personel" INTEGER NOT NULL DEFAULT 0
);

CREATE TABLE "WindowPlace" (
    "RowKey" INTEGER PRIMARY KEY,
    "Form" TEXT,
    "Place" TEXT
);
