// The contract summary and the accessory report.
