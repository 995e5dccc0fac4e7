-- The file of an address book. What a contact may hold is decided here and nowhere else:
-- each rule is named by the sentence that the program shows when a contact breaks it.
-- On the screen there are the characters of ISO 8859-1 only: blank to ~, no-break space to ÿ.
BEGIN IMMEDIATE;
PRAGMA application_id = 1447380034; -- 'VEDB'
PRAGMA user_version = 1;
CREATE TABLE contact (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    name TEXT NOT NULL
        CONSTRAINT "The name is missing." CHECK (trim(name) <> '')
        CONSTRAINT "The name is too long (at most 64 characters)." CHECK (length(name) <= 64)
        CONSTRAINT "The name has characters outside ISO 8859-1."
            CHECK (name NOT GLOB '*[^ -~ -ÿ]*'),
    street TEXT NOT NULL
        CONSTRAINT "The street is too long (at most 64 characters)." CHECK (length(street) <= 64)
        CONSTRAINT "The street has characters outside ISO 8859-1."
            CHECK (street NOT GLOB '*[^ -~ -ÿ]*'),
    post_code TEXT NOT NULL
        CONSTRAINT "The postcode must be at most 10 digits."
            CHECK (length(post_code) <= 10 AND post_code NOT GLOB '*[^0-9]*'),
    town TEXT NOT NULL
        CONSTRAINT "The town is too long (at most 64 characters)." CHECK (length(town) <= 64)
        CONSTRAINT "The town has characters outside ISO 8859-1."
            CHECK (town NOT GLOB '*[^ -~ -ÿ]*'),
    telephone TEXT NOT NULL
        CONSTRAINT "The telephone number is too long (at most 64 characters)."
            CHECK (length(telephone) <= 64)
        CONSTRAINT "The telephone number has characters outside ISO 8859-1."
            CHECK (telephone NOT GLOB '*[^ -~ -ÿ]*'),
    email TEXT NOT NULL
        CONSTRAINT "The email address is too long (at most 64 characters)."
            CHECK (length(email) <= 64)
        CONSTRAINT "The email address has characters outside ISO 8859-1."
            CHECK (email NOT GLOB '*[^ -~ -ÿ]*'),
    notes TEXT NOT NULL
        CONSTRAINT "The notes are too long (at most 999 characters)." CHECK (length(notes) <= 999)
        CONSTRAINT "The notes have characters outside ISO 8859-1."
            CHECK (replace(notes, char(10), '') NOT GLOB '*[^ -~ -ÿ]*'),
    picture TEXT NOT NULL
        CONSTRAINT "The file name of the picture is too long (at most 999 bytes)."
            CHECK (length(CAST(picture AS BLOB)) <= 999)
        -- SQLite reads the character 65533 for whatever is no UTF-8.
        CONSTRAINT "The file name of the picture is not valid UTF-8."
            CHECK (picture NOT GLOB '*[' || char(65533) || ']*')
);
COMMIT;
