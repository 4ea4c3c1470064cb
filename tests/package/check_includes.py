#!/usr/bin/env python3
"""Fails where a public header uses a common name without including the header that declares it: what another header
happens to include may go away.

    tests/package/check_includes.py      run from the project's root folder"""

import pathlib
import re
import sys

# Names, and the headers of which one has to be included where they are used.
DECLARED_IN = {
    r"OVRIXUTIL_EXPORT": ["OVRIXUtil/Export.h"],
    r"OVRIXSERIALIZATION_EXPORT": ["OVRIXSerialization/Export.h"],
    r"OVRIXMATH_EXPORT": ["OVRIXMath/Export.h"],
    r"ov(?:UInt32|Real64|Bool)": ["OVRIXUtil/Types.h", "OVRIXMath/Types.h"],
    r"NumericLimits": ["OVRIXUtil/NumericLimits.h", "OVRIXMath/Types.h"],
    r"BoolResult": ["OVRIXUtil/ProcessingResult.h", "OVRIXMath/Types.h"],
    r"(?:Vector|Matrix|VectorColl|UInt32Vector|DataSet|ParameterType|ResidualsSet|OutlierFlags)": ["OVRIXMath/Types.h"],
    r"boost::shared_ptr": ["boost/shared_ptr.hpp"],
    r"std::array": ["array"],
    r"std::function": ["functional"],
    r"std::map": ["map"],
    r"std::numeric_limits": ["limits"],
    r"std::(?:forward|move|pair|swap)": ["utility"],
    r"std::set": ["set"],
    r"std::size_t": ["cstddef"],
    r"std::(?:abs|exp|floor|isfinite|isnan|log|pow|sqrt)": ["cmath"],
    r"std::(?:clamp|copy|fill|max|min|sort)": ["algorithm"],
    r"std::(?:istream|ostream)": ["iosfwd", "istream", "ostream", "iostream"],
    r"std::string": ["string"],
    r"std::string_view": ["string_view"],
    r"std::u?int\d+_t": ["cstdint"],
    r"std::unique_ptr": ["memory"],
    r"std::vector": ["vector"],
}
LITERAL_OR_COMMENT = re.compile(r'"(?:[^"\\\n]|\\.)*"|//.*|^ *#.*', re.M)

missing = 0
for library in ("OVRIXUtil", "OVRIXSerialization", "OVRIXMath"):
    for header in sorted(pathlib.Path(library).rglob("*.h")):
        text = header.read_text()
        included = set(re.findall(r"^#include <(.+)>", text, re.M))
        code = LITERAL_OR_COMMENT.sub("", text)
        for name, headers in DECLARED_IN.items():
            used = re.search(rf"(?<![\w:]){name}(?!\w)", code)
            if used and not included.intersection(headers) and str(header) not in headers:
                print(f"{header} uses {used[0]} without <{headers[0]}>")
                missing += 1
sys.exit(missing != 0)
