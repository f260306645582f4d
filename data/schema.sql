-- The design database: every table that the program reads, and the order of their columns.
--
-- Three things depend on the order of columns, so new ones go to the end of a table:
--   * the item tables [DATA:...] begin with the same five columns, and every later column is
--     walked by position when an item is loaded;
--   * the third column of [groups] is printed in the message about a faulty rule;
--   * a record set gives its fields by position as well as by name.
--
-- All value columns of the item tables are TEXT, or the program would show 28 as "28.0".
-- Columns that are sorted by have a numeric type, or 100 would come before 20.5.
-- No column is UNIQUE: rows carried over from an earlier database are inserted as they are.

-- Groups of the chooser, one list for each of the four selections.
CREATE TABLE [groups] (
  [ID] INTEGER NOT NULL,
  [Group Type] TEXT NOT NULL,           -- IC, INPUT, LAMP or CONFIG
  [Group Title] TEXT NOT NULL,          -- a "/" divides it into two lines
  [sequence] REAL NOT NULL,             -- order of display
  [Include] BOOLEAN NOT NULL DEFAULT 1,
  [Group Picture] TEXT,                 -- path below the program's folder
  [SelectionAllowed] TEXT               -- comma list of TYPE#NAME and !TYPE#NAME; empty: no rule
);

-- Item tables. RecordType 0 is the one row of field tags, 2 is an item.
-- In the tags row each value column holds the names of the fields that it fills.
CREATE TABLE [DATA:IC] (
  [RecordType] INTEGER NOT NULL,
  [ID] INTEGER NOT NULL,                -- position of the IC in [Target:Info], from 0
  [Group] INTEGER,
  [Name] TEXT,
  [PullDownName] TEXT,
  [Include] BOOLEAN,                    -- NULL in the tags row, as is UserData
  [UserData] BOOLEAN,
  [Allow Input] TEXT,
  [Allow Config] TEXT,
  [Allow Advanced] TEXT,
  [Allow Inductor] TEXT,
  [Allow Transformer] TEXT,
  [Allow CC] TEXT,
  [Ballast Run Frequency (kHz)] TEXT
);

CREATE TABLE [DATA:INPUT] (
  [RecordType] INTEGER NOT NULL,
  [ID] INTEGER NOT NULL,
  [Group] INTEGER,
  [Name] TEXT,
  [PullDownName] TEXT,
  [Include] BOOLEAN,
  [UserData] BOOLEAN,
  [Min Input (VAC)] TEXT,
  [Max Input (VAC)] TEXT,
  [Preheat Bus (VDC)] TEXT,
  [Ignition Bus (VDC)] TEXT,
  [Running Bus (VDC)] TEXT,
  [Max Bus (VDC)] TEXT,
  [Min Bus (VDC)] TEXT,
  [PFC Yes/No] TEXT,
  [Schematic] TEXT,
  [PFC Frequency (kHz)] TEXT
);

-- The names of these value columns are also the captions of the editor for user lamps.
CREATE TABLE [DATA:LAMP] (
  [RecordType] INTEGER NOT NULL,
  [ID] INTEGER NOT NULL,
  [Group] INTEGER,
  [Name] TEXT,
  [PullDownName] TEXT,
  [Include] BOOLEAN,
  [UserData] BOOLEAN,
  [Run Lamp Power (W)] TEXT,
  [Run Lamp Voltage (VPk)] TEXT,
  [Max Lamp Preheat Voltage (VPk)] TEXT,
  [Max Lamp Ignition Voltage (VPk)] TEXT,
  [Preheat Current (A)] TEXT,
  [Preheat Time (Sec)] TEXT,
  [Max (%)] TEXT,
  [Pmax% (W)] TEXT,
  [Vmax% (VPk)] TEXT,
  [Min (%)] TEXT,
  [Pmin% (W)] TEXT,
  [Vmin% (VPk)] TEXT,
  [Voltage Mode Vph] TEXT,
  [Compact Yes/No] TEXT,
  [Has RDC Yes/No] TEXT
);

-- A configuration scales the lamp's values and loads none of its own: no value columns.
CREATE TABLE [DATA:CONFIG] (
  [RecordType] INTEGER NOT NULL,
  [ID] INTEGER NOT NULL,                -- the number of the configuration, 0 to 7
  [Group] INTEGER,
  [Name] TEXT,
  [PullDownName] TEXT,
  [Include] BOOLEAN,
  [UserData] BOOLEAN
);

-- One row for each IC that the program has formulas for.
CREATE TABLE [Target:Info] (
  [TargetNo] INTEGER NOT NULL,
  [target] TEXT NOT NULL,               -- short name, the key of the table
  [FullName] TEXT,
  [GroupName] TEXT,
  [URL] TEXT,                           -- datasheet
  [BOMTable] TEXT,                      -- name of the IC's component table
  [Input] TEXT,                         -- these three: "/" lists of the stages that a
  [IC] TEXT,                            -- component calculation runs for the line input,
  [Config] TEXT                         -- the IC and the lamp configuration
);

-- How a screen is filled from the fields of other screens.
CREATE TABLE [LoadInputs] (
  [LoadID] TEXT NOT NULL,
  [Destination] TEXT,
  [DestinationField] TEXT,              -- a field, or a control group and an index
  [target] TEXT,                        -- comma list of ICs, or "*"
  [CopyRegardlessOfTarget] BOOLEAN NOT NULL DEFAULT 0,
  [ValueUnit] TEXT,
  [DefaultValue] TEXT,
  [Source] TEXT,                        -- screen and field, joined by a comma
  [Locked] BOOLEAN NOT NULL DEFAULT 0,
  [InvisibleIfUnused] BOOLEAN NOT NULL DEFAULT 0,
  [InvisibleIfEmpty] BOOLEAN NOT NULL DEFAULT 0
);

CREATE TABLE [web] (
  [manufacturer] TEXT,
  [homepage] TEXT
);

CREATE TABLE [ComponentDescriptions] (
  [RefDes] TEXT NOT NULL,
  [description] TEXT,
  [DecPlaces] INTEGER,
  [MNR] BOOLEAN NOT NULL DEFAULT 0,     -- match to a resistor series
  [MNC] BOOLEAN NOT NULL DEFAULT 0,     -- match to a capacitor series
  [OverrideSeries] TEXT                 -- e12, e24 or NULL
);

-- Magnetic cores. Lengths in mm, areas in mm2, core factor in 1/mm.
CREATE TABLE [INDUCTOR:Core Types] (
  [Core Size] TEXT,
  [Le Value] REAL,
  [Ae Value] REAL,
  [Core Factor] REAL,
  [Winding Area] REAL,
  [Maximum Allowable Gap] REAL,
  [Number of Pins on Former] REAL,
  [UserData] BOOLEAN NOT NULL DEFAULT 0
);

-- Where each input of a component calculation comes from.
CREATE TABLE [CC:SourceVariables] (
  [Variable] TEXT NOT NULL,
  [Source] TEXT,                        -- screen and field, joined by a comma
  [Value] TEXT,                         -- constant, when there is no source
  [SourceUnits] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0
);

-- The rules that calculate components. V0 to V11 name the arguments of Function.
CREATE TABLE [CC:Calculations] (
  [Calculate] TEXT NOT NULL,
  [Multiple] BOOLEAN NOT NULL DEFAULT 0,
  [Input] TEXT,
  [Target] TEXT,
  [Config] TEXT,
  [Function] TEXT,
  [functionisvar] BOOLEAN NOT NULL DEFAULT 0,
  [SetValueDirectly] BOOLEAN NOT NULL DEFAULT 0,
  [V0] TEXT,
  [V1] TEXT,
  [V2] TEXT,
  [V3] TEXT,
  [V4] TEXT,
  [V5] TEXT,
  [V6] TEXT,
  [V7] TEXT,
  [V8] TEXT,
  [V9] TEXT,
  [V10] TEXT,
  [V11] TEXT,
  [VariableName] TEXT,
  [Value] TEXT,
  [Reference] TEXT,
  [Description] TEXT,
  [DecPlaces] INTEGER,
  [OverrideSeries] TEXT,
  [Flags] INTEGER
);

-- Curves of the function "interpolatevalue". A rule names the two parts behind "Lookup:".
CREATE TABLE [Lookup:Block:Current] (
  [Index] REAL NOT NULL,                -- lamp current, A rms
  [value] REAL NOT NULL                 -- blocking capacitor, nF
);

CREATE TABLE [Lookup:Choke:Power] (
  [Index] REAL NOT NULL,                -- lamp power, W
  [value] REAL NOT NULL                 -- line volt-amperes
);

CREATE TABLE [Lookup:Scale:Unity] (
  [Index] REAL NOT NULL,                -- any number
  [value] REAL NOT NULL                 -- the same number
);

CREATE TABLE [Lookup:Snub:Bus] (
  [Index] REAL NOT NULL,                -- bus voltage, V
  [value] REAL NOT NULL                 -- snubber capacitor, nF
);

-- The components of each IC, stage by stage; [Target:Info].[BOMTable] names the table.
CREATE TABLE [TV6101 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6102 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6103 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6104 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6105 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6106 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6107 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6108 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6109 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE TABLE [TV6110 BOM] (
  [Stage] TEXT,
  [RefDes] TEXT,
  [Variable] TEXT,
  [Reference] TEXT,
  [Desc] TEXT,
  [Description] TEXT,
  [Rating] TEXT,
  [Tolerance] TEXT,
  [value] TEXT,
  [ValueUnit] TEXT,
  [Fixed] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutput] BOOLEAN NOT NULL DEFAULT 0,
  [CCOutputDependancy] BOOLEAN NOT NULL DEFAULT 0,
  [Disallow] TEXT,
  [RemoveIfNoMatch] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNR] BOOLEAN NOT NULL DEFAULT 0,
  [ForceMNC] BOOLEAN NOT NULL DEFAULT 0,
  [Flags] INTEGER NOT NULL DEFAULT 0,
  [GeneratorCode] TEXT
);

CREATE INDEX [ix_calculate] ON [CC:Calculations]([Calculate]);
CREATE INDEX [ix_multiple] ON [CC:Calculations]([Multiple]);
CREATE INDEX [ix_source] ON [CC:SourceVariables]([Variable]);
CREATE INDEX [ix_description] ON [ComponentDescriptions]([RefDes]);
CREATE INDEX [ix_load] ON [LoadInputs]([LoadID]);
