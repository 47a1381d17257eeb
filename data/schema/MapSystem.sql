CREATE TABLE "Map" (
    "RowKey" INTEGER PRIMARY KEY,
    "MapID" INTEGER UNIQUE,
    "MapName" TEXT,
    "MapPath" TEXT,
    "MapParentID" INTEGER,
    "ParentX" REAL,
    "ParentY" REAL,
    "SystemNumber" INTEGER,
    "MapAbove" INTEGER,
    "MapBelow" INTEGER,
    "Int1" INTEGER,
    "Int2" INTEGER,
    "Sng1" REAL,
    "Sng2" REAL,
    "Lng1" INTEGER,
    "Lng2" INTEGER,
    "Text1" TEXT,
    "Text2" TEXT
);
CREATE INDEX "MapBySystem" ON "Map" ("SystemNumber");
