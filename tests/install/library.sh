# SPDX-License-Identifier: Apache-2.0
source "$(dirname "$0")/common.sh"

library=$PREFIX/$LIBDIR/libtamo.so.0

needed=$(readelf -d "$library" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
allowed="libQt${QT}Core.so.${QT} libpps.so.0 libscreen.so.0 libzel.so.0 libstdc++.so.6 libgcc_s.so.1 libc.so.6"
for name in $needed; do
    [[ " $allowed " == *" $name "* ]] || fail "libtamo needs $name"
done
for name in pps screen zel; do
    [[ $needed == *lib$name.so.0* ]] || fail "libtamo does not need lib$name"
done
readelf -d "$library" | grep -q 'SONAME.*\[libtamo.so.0\]' || fail "the library's name is another"

# Public classes and functions: those with a header of their own.
names=$(cd "$PREFIX/include" && find tamo* -name '*.h' | sed 's/\.h$//; s|/|::|g')
shown=$(nm -DC --defined-only "$library" | cut -d ' ' -f 3- |
    sed -E 's/^(typeinfo( name)?|vtable) for //')
while read -r symbol; do
    known=
    for name in $names; do
        [[ $symbol != "$name" && $symbol != "$name"::* && $symbol != "$name("* ]] || known=yes
    done
    [ -n "$known" ] || fail "libtamo shows $symbol"
done <<<"$shown"
[[ $shown == *"tamo::PpsObject::open("* ]] || fail "libtamo does not show its classes"
[[ $shown == *"tamo::Exception"* ]] || fail "libtamo does not show its exception"
