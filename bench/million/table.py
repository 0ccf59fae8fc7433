"""The table of tovarin-report --format json, made the way a pandas user would:
read_csv, numpy for the statistics, to_json for the output.
Usage: table.py IN.csv OUT.json"""
import sys

import numpy as np
import pandas as pd

models = pd.read_csv(sys.argv[1])
models.columns = ['name', 'bic']
delta = models['bic'] - models['bic'].min()
term = np.exp(-delta / 2)
models['delta_bic'] = delta
models['weight'] = term / term.sum()
models = models.sort_values('bic', kind='stable').reset_index(drop=True)
models.insert(0, 'rank', np.arange(1, len(models) + 1))
models['cumulative_weight'] = models['weight'].cumsum()
models['ln_bayes_factor'] = models['delta_bic'] / 2
with np.errstate(over='ignore'):
    models['bayes_factor'] = np.exp(models['ln_bayes_factor'])
bands = np.array(['weak', 'positive', 'strong', 'very strong'])
models['evidence'] = bands[np.searchsorted([2, 6, 10], models['delta_bic'], side='left')]
models.loc[models['delta_bic'] == 0, 'evidence'] = 'best model'
# Tied models (adjacent once sorted) are in or out together, by the weight before the first.
before = (models['cumulative_weight'] - models['weight']).to_numpy()
first = models['bic'].ne(models['bic'].shift()).to_numpy()
models['in_confidence_set'] = before[first][np.cumsum(first) - 1] < 0.95
models['bic_source'] = 'read'
models.to_json(sys.argv[2], orient='records', double_precision=15)
