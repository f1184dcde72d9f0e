module order

go 1.19
