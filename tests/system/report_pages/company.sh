#!/bin/sh
# company.sh PROGRAMS FOLDER: the fixed small company whose reports are kept as texts: a demonstration, and a few rows that it has
# by chance only.
set -eu
programs=$1
folder=$2
books=$folder/data/orv1/customer.zdb
"$programs/suitefiles" demo "$folder" --company 1 --customers 60 --seed 10 --date 2026-03-09
change() { "$programs/suitefiles" sql "${2:-$books}" "$1"; }
change "UPDATE Company SET CompName = 'Lakes \"& Prairie\" Home Services', Addr2 = 'Suite 4'" "$folder/dat.zdb"
change "UPDATE Customers SET ExemptExpireDate = #4/1/2026#, TaxID = 'ES-100200' WHERE AcctNum = 7"
change "UPDATE Customers SET ExemptExpireDate = #12/31/2025#, TaxID = 'ES-100300' WHERE AcctNum = 8"
change "UPDATE Customers SET ExemptExpireDate = #12/31/2026#, TaxID = 'ES-100400' WHERE AcctNum = 9"
change "UPDATE Customers SET MapCode = '' WHERE AcctNum = 10 Or AcctNum = 11"
change "UPDATE Customers SET Comments = 'Ring twice: the bell of the side door is the one that can be heard in the workshop. The dog is friendly, its owner less so on Mondays.' WHERE AcctNum = 2"
change "UPDATE Customers SET Addr1 = Null, City = Null, State = Null, Zip = Null WHERE AcctNum = 3"
