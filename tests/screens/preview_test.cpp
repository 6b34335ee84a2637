// "Print Preview".
