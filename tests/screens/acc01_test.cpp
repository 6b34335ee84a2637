// "Type 1 Accessories".
