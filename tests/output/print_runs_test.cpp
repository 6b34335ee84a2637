// The printing of all sheets.
