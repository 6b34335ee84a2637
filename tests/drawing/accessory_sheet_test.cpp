// The sheet of an accessory.
