// The accessory list: its pop-up, and which dialog it opens.
