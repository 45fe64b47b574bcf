# Draws how much of its limit each figure takes: gnuplot -e "shares='FILE'" -e "chart='FILE.png'" bench/chart.gnuplot
set terminal pngcairo size 1200, 900 font "DejaVu Sans,9"
set output chart
set datafile separator "\t"
set title "What each figure takes of its limit (the line); less is better"
set logscale x 2
set xrange [0.01:2]
set yrange [*:*] reverse
set lmargin screen 0.56
set grid xtics
set arrow from 1, graph 0 to 1, graph 1 nohead linewidth 2 linecolor "red"
set boxwidth 0.7
unset key
plot shares using (0):0:(0.01):2:($0-0.35):($0+0.35):ytic(strcol(1)) with boxxyerror fill solid 0.6 noborder linecolor "steelblue"
