# Draws cost against size, a panel for each table:
#   gnuplot -c growth.gnuplot DATA.csv PICTURE.svg
# The lines of the data are table,contender,size,ns; those of one curve stand together.

array names = ["std::unordered_map", "RapidJSON", "nlohmann", "Boost.JSON", "Json_Dll", \
               "Json_Dll handle", "Json_Dll item", "Json_Dll reference", "Json_Dll path", \
               "Json_Dll parser", "Json_Dll package", "Json_Dll generator"]
array colours = ["#000000", "#999999", "#e08a1e", "#3a9d4f", "#1f5fbf", \
                 "#1f5fbf", "#7aa7e8", "#8e44ad", "#c0392b", \
                 "#1f5fbf", "#16a2b8", "#c0392b"]

set datafile separator comma

# Which tables there are, and which curves each has.
tables = " "
curves = "\n"
Once(list, item) = strstrt(list, item) ? list : list . item
stats ARG1 skip 1 using (tables = strstrt(tables, " " . strcol(1) . " ") ? tables : tables . strcol(1) . " ", 0) nooutput
stats ARG1 skip 1 using (curves = Once(curves, strcol(1) . "," . strcol(2) . "\n"), 0) nooutput

columns = 4
rows = (words(tables) + 1 + columns - 1) / columns

set terminal svg size 280 * columns, 210 * rows font "sans-serif,11" background "#ffffff"
set output ARG2
set multiplot layout rows, columns
set logscale xy
set format "%.0s%c"
set grid linecolor rgb "#dddddd"
set border linecolor rgb "#999999"
set tics scale 0.5 textcolor rgb "#333333"
unset mxtics
unset mytics
set title offset 0, -0.6
set margins 6, 2, 2, 2
set autoscale xfix
set key off

do for [table in tables] {
    set title table . ", ns" noenhanced
    shown = ""
    do for [i = 1:|names|] {
        if (strstrt(curves, "\n" . table . "," . names[i] . "\n")) { shown = shown . " " . i }
    }
    plot for [i in shown] ARG1 skip 1 \
        using (strcol(1) eq table && strcol(2) eq names[int(i)] ? column(3) : NaN):4 \
        with lines linewidth 2 linecolor rgb colours[int(i)]
}

# The last panel says which curve is whose.
unset title
unset border
unset tics
unset logscale
set margins 0, 0, 0, 0
set key center center Left reverse vertical maxcols 1 spacing 0.9
set xrange [0:1]
set yrange [0:1]
plot for [i = 1:|names|] NaN with lines linewidth 2 linecolor rgb colours[i] title names[i] noenhanced
unset multiplot
