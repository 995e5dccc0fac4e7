-- The file of an address book. The rules for what a contact may hold stand here and nowhere else:
-- each has the sentence for its name that the program shows when a contact breaks it.
-- On the screen there are the characters of ISO 8859-1 only: blank to ~, no-break space to ÿ.
BEGIN IMMEDIATE;
PRAGMA application_id = 1447380034; -- 'VEDB'
PRAGMA user_version = 1;
CREATE TABLE contact (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL
        CONSTRAINT "Der Name fehlt." CHECK (trim(name) <> '')
        CONSTRAINT "Der Name ist zu lang (höchstens 64 Zeichen)." CHECK (length(name) <= 64)
        CONSTRAINT "Der Name enthält Zeichen, die es in ISO 8859-1 nicht gibt."
            CHECK (name NOT GLOB '*[^ -~ -ÿ]*'),
    street TEXT NOT NULL
        CONSTRAINT "Die Straße ist zu lang (höchstens 64 Zeichen)." CHECK (length(street) <= 64)
        CONSTRAINT "Die Straße enthält Zeichen, die es in ISO 8859-1 nicht gibt."
            CHECK (street NOT GLOB '*[^ -~ -ÿ]*'),
    post_code TEXT NOT NULL
        CONSTRAINT "Die Postleitzahl besteht aus höchstens 10 Ziffern."
            CHECK (length(post_code) <= 10 AND post_code NOT GLOB '*[^0-9]*'),
    town TEXT NOT NULL
        CONSTRAINT "Der Ort ist zu lang (höchstens 64 Zeichen)." CHECK (length(town) <= 64)
        CONSTRAINT "Der Ort enthält Zeichen, die es in ISO 8859-1 nicht gibt."
            CHECK (town NOT GLOB '*[^ -~ -ÿ]*'),
    telephone TEXT NOT NULL
        CONSTRAINT "Die Telefonnummer ist zu lang (höchstens 64 Zeichen)."
            CHECK (length(telephone) <= 64)
        CONSTRAINT "Die Telefonnummer enthält Zeichen, die es in ISO 8859-1 nicht gibt."
            CHECK (telephone NOT GLOB '*[^ -~ -ÿ]*'),
    email TEXT NOT NULL
        CONSTRAINT "Die E-Mail-Adresse ist zu lang (höchstens 64 Zeichen)."
            CHECK (length(email) <= 64)
        CONSTRAINT "Die E-Mail-Adresse enthält Zeichen, die es in ISO 8859-1 nicht gibt."
            CHECK (email NOT GLOB '*[^ -~ -ÿ]*'),
    notes TEXT NOT NULL
        CONSTRAINT "Die Notiz ist zu lang (höchstens 999 Zeichen)." CHECK (length(notes) <= 999)
        CONSTRAINT "Die Notiz enthält Zeichen, die es in ISO 8859-1 nicht gibt."
            CHECK (replace(notes, char(10), '') NOT GLOB '*[^ -~ -ÿ]*'),
    picture TEXT NOT NULL
        CONSTRAINT "Der Dateiname des Bildes ist zu lang (höchstens 999 Bytes)."
            CHECK (length(CAST(picture AS BLOB)) <= 999)
        -- SQLite reads the character 65533 for whatever is no UTF-8.
        CONSTRAINT "Der Dateiname des Bildes ist nicht in UTF-8."
            CHECK (picture NOT GLOB '*[' || char(65533) || ']*')
);
-- The contacts as lines of a file of comma-separated values: each field quoted.
CREATE VIEW csv AS SELECT id, name, '"' || replace(name, '"', '""') || '","' ||
    replace(street, '"', '""') || '","' || post_code || '","' || replace(town, '"', '""') || '","' ||
    replace(telephone, '"', '""') || '","' || replace(email, '"', '""') || '","' ||
    replace(notes, '"', '""') || '","' || replace(picture, '"', '""') || '"' AS line FROM contact;
COMMIT;
