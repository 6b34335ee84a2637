// "Type 2 Accessories".
