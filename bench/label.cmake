# What the label area adds here.
