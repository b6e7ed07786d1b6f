/// Operations on the matrix, compared with the model as a whole.
#pragma once

#include "matrix/matrix_fixture.h"
#include "matrix/matrix_model.h"
#include "matrix/model_readers.h"

namespace ace::test {

/// An engine and the model side by side: each operation is made on both.
class MatrixModelTest : public MatrixTest {
  protected:
    void SetInfluence(unsigned flags) {
        const bool f = (flags & 1U) != 0;
        const bool b = (flags & 2U) != 0;
        const bool p = (flags & 4U) != 0;
        engine->SetVKSDUTInfluence(f ? 1 : 0, b ? 1 : 0, p ? 1 : 0);
        model.SetInfluence(f, b, p);
    }
    void AddFrequency(double frequency) {
        const String name = NewName();
        engine->AddVKSDUTFreq(name, frequency);
        model.AddFrequency(name, frequency);
    }
    void DeleteFrequency(double frequency) {
        engine->DeleteVKSDUTFreq(frequency);
        model.DeleteFrequency(frequency);
    }
    void AddName(int dimension, int id) {
        const String name = NewName();
        if (dimension == 1) {
            engine->AddVKSDUTBandwidthID(name, id);
        } else {
            engine->AddVKSDUTPowerID(name, id);
        }
        model.AddName(dimension, name, id);
    }
    void DeleteName(int dimension, int id) {
        const std::int32_t error = ErrorOf([&] {
            dimension == 1 ? engine->DeleteVKSDUTBandwidthID(id) : engine->DeleteVKSDUTPowerID(id);
        });
        EXPECT_EQ(error, model.DeleteName(dimension, id));
    }
    void DeleteAll() {
        engine->DeleteVKSDUTAll();
        model.DeleteAll();
    }
    void SetTemplate(int number) { State().VKSDUTTemplate = model.templateNumber = number; }
    /// Gives a row five new lists.
    void Edit(int row) {
        ModelEntry& entry = model.lists.At(row);
        entry = {++content, ++content, ++content, ++content, ++content};
        Write(State().VKSSteps[row], entry);
    }
    void EditAll() {
        for (int row = 0; row < model.rows; ++row) {
            Edit(row);
        }
    }
    String NewName() { return std::to_wstring(++content); }

    ModelArray<ModelKey> Keys() {
        ModelArray<ModelKey> keys;
        const Array2D<double>& ids = State().VKSDUTIds;
        keys.made = ids.IsAllocated();
        for (std::int32_t row = 0; keys.made && row <= ids.RowUpperBound(); ++row) {
            keys.elements.push_back({ids(row, 0), ids(row, 1), ids(row, 2)});
        }
        return keys;
    }
    /// Rows and tables as a whole, spare elements included.
    void Compare() {
        ASSERT_EQ(State().VKSStepCount, model.rows);
        ASSERT_EQ(Keys(), model.keys);
        ASSERT_EQ(Read(State().VKSSteps), model.lists);
        ASSERT_EQ(State().VKSDUTFreqCount, model.frequencyCount);
        ASSERT_EQ(ModelArray<double>({{State().VKSDUTFreqs.begin(), State().VKSDUTFreqs.end()},
                                      State().VKSDUTFreqs.IsAllocated()}),
                  model.frequencies);
        ASSERT_EQ(Read(State().VKSDUTFreqNames), model.frequencyNames);
        ASSERT_EQ(Read(State().VKSDUTBandwidthNames), model.tables[0].names);
        ASSERT_EQ(State().VKSDUTBandwidthCount, model.tables[0].count);
        ASSERT_EQ(Read(State().VKSDUTPowerNames), model.tables[1].names);
        ASSERT_EQ(State().VKSDUTPowerCount, model.tables[1].count);
    }

    MatrixModel model;
    int content = 0;
};

}  // namespace ace::test
