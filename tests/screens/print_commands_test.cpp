// The entries of the Output menu that print.
