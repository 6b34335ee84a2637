// What the accessory dialogs store and refuse.
