// Documents on printers.
